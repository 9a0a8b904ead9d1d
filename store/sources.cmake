target_sources(swipeline_app PRIVATE
)
