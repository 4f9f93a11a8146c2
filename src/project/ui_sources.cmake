# Widgets of the project window and the coefficient export window.
target_sources(orvana_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/fir_export_table_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/fir_export_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/project_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/project_window_stages.cpp
)
