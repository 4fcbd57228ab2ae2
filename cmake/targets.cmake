# orvane_library(name SOURCES … [PUBLIC …] [PRIVATE …]): one static library per folder.
# Headers are included by their path under src/.
function(orvane_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC orvane_flags ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
endfunction()

# orvane_test(name LABEL unit|store|form|print SOURCES … LIBRARIES …): one Qt Test executable per unit.
function(orvane_test name)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE orvane_flags ${ARG_LIBRARIES} Qt6::Test)
    set_target_properties(${name} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
