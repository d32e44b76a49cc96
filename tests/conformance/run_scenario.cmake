# Runs one scenario script with the program on a platform and compares what it prints, and its
# exit status, with the scenario's .expected file (whose last line is "[exit N]").
#   cmake -DPROGRAM=... -DSCENARIO=x.zks -DPLATFORM=headless -DWORK_DIR=... -P run_scenario.cmake
file(MAKE_DIRECTORY "${WORK_DIR}")
execute_process(
  COMMAND "${PROGRAM}" script --platform "${PLATFORM}" "${SCENARIO}"
  WORKING_DIRECTORY "${WORK_DIR}"
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors
  RESULT_VARIABLE status
  TIMEOUT 120)
string(APPEND output "[exit ${status}]\n")
string(REGEX REPLACE "\\.zks$" ".expected" expected_file "${SCENARIO}")
file(READ "${expected_file}" expected)
if(NOT output STREQUAL expected)
  get_filename_component(name "${SCENARIO}" NAME_WE)
  file(WRITE "${WORK_DIR}/${name}.actual" "${output}")
  execute_process(COMMAND diff -u "${expected_file}" "${WORK_DIR}/${name}.actual"
                  OUTPUT_VARIABLE difference)
  message(FATAL_ERROR "${name} on ${PLATFORM} differs from its expected output:\n"
                      "${difference}\n${errors}")
endif()
