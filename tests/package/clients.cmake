# clients(COMPONENT...): the client of each component, which links that one alone.
set(client_of_statistics statistics.cpp)
set(client_of_tbvnonpara automation.cpp)
set(client_of_workbook workbook.cpp)
set(client_of_c ../../examples/c/sleep.c)

function(clients)
    foreach(component ${ARGN})
        string(REPLACE _static "" source client_of_${component})
        add_executable(client_of_${component} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${${source}})
        target_link_libraries(client_of_${component} PRIVATE TBVNonPara::${component})
    endforeach()
endfunction()
