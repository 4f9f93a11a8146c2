# Widgets of the filter designer and the design file sheets.
target_sources(orvana_ui PRIVATE
)
