# Widgets of the signal designer and the signal inspector.
target_sources(orvana_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/inspector_sig_table_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/signal_design_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/signal_inspector_window.cpp
)
