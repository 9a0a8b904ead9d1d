target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/app/mainwindow.cpp
    ${CMAKE_SOURCE_DIR}/app/mystyle.cpp
    ${CMAKE_SOURCE_DIR}/app/palette.cpp
    ${CMAKE_SOURCE_DIR}/app/widgetchange.cpp
)
