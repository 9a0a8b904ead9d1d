target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/widgets/messagedialog.cpp
    ${CMAKE_SOURCE_DIR}/widgets/mymenu.cpp
    ${CMAKE_SOURCE_DIR}/widgets/mysubmenu.cpp
    ${CMAKE_SOURCE_DIR}/widgets/painting.cpp
    ${CMAKE_SOURCE_DIR}/widgets/rowlayout.cpp
    ${CMAKE_SOURCE_DIR}/widgets/sandglass.cpp
    ${CMAKE_SOURCE_DIR}/widgets/spinitems.cpp
    ${CMAKE_SOURCE_DIR}/widgets/talkinglist.cpp
    ${CMAKE_SOURCE_DIR}/widgets/talkingmenu.cpp
    ${CMAKE_SOURCE_DIR}/widgets/talkingmenu_painting.cpp
    ${CMAKE_SOURCE_DIR}/widgets/valuelist.cpp
    ${CMAKE_SOURCE_DIR}/widgets/yesnoselect.cpp
)
