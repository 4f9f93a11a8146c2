# Widgets of the filter designer, the filter inspector and the design file sheets.
target_sources(orvana_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/design_file_alerts.cpp
  ${CMAKE_CURRENT_LIST_DIR}/design_file_commands.cpp
  ${CMAKE_CURRENT_LIST_DIR}/design_file_kind.cpp
  ${CMAKE_CURRENT_LIST_DIR}/design_file_listing.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_table_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_design_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_inspector_window.cpp
  ${CMAKE_CURRENT_LIST_DIR}/inspector_filt_table_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/number_field.cpp
  ${CMAKE_CURRENT_LIST_DIR}/open_sheet.cpp
  ${CMAKE_CURRENT_LIST_DIR}/save_sheet.cpp
)
