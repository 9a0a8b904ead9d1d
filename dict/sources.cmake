target_sources(swipeline_app PRIVATE
    ${CMAKE_SOURCE_DIR}/dict/dictlist.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit_keys.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit_reading.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit_scan.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit_trans.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictscanedit_words.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictswitch.cpp
    ${CMAKE_SOURCE_DIR}/dict/dictvoice.cpp
    ${CMAKE_SOURCE_DIR}/dict/pairname.cpp
    ${CMAKE_SOURCE_DIR}/dict/transtext.cpp
    ${CMAKE_SOURCE_DIR}/dict/transwords.cpp
)
