target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/engines/flags.cpp
    ${CMAKE_SOURCE_DIR}/engines/stimg.cpp
)
