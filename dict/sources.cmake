target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit.cpp
)
