# Runs the setup helper, PROGRAM, and compares its exit codes and what it prints.
function(expect exit_code output)
    execute_process(COMMAND ${PROGRAM} ${ARGN}
        RESULT_VARIABLE actual_code OUTPUT_VARIABLE actual_output TIMEOUT 120)
    if(NOT actual_code STREQUAL exit_code OR NOT actual_output MATCHES "${output}")
        message(SEND_ERROR "'${ARGN}': exit code ${actual_code}, output:\n${actual_output}")
    endif()
endfunction()

expect(2 "^Usage: pevrix-camsetup --firewall")
expect(2 "^Usage: " --Firewall)
expect(2 "^Usage: " --firewall --firewall)
expect(0 "^Usage: " --help)
expect(1 "^$" --firewall)
