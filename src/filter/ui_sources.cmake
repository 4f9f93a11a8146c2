# Windows of the filter designer and the filter inspector.
target_sources(orvana_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/filter_design_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_inspector_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/inspector_filt_table_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mask_section.cpp
  ${CMAKE_CURRENT_LIST_DIR}/measured_panel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_design_window_analysis.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_design_window_compare.cpp
)
