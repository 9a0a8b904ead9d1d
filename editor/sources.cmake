target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/editor/myedit.cpp
)
