# The program at its edges: files and strings that are not what a command expects must end with
# a clear message and a non-zero exit (or, inside a script, an error line), never a crash, and
# must write nothing.
#   cmake -DPROGRAM=zkcontrols -DWORK_DIR=... -P bad_input.cmake
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
set(failures "")

# Runs the program; checks its exit status and that its output matches a pattern.
#   expect(NAME STATUS OUT_REGEX ERR_REGEX [INPUT file] ARGS...)
function(expect name want_status out_regex err_regex)
  set(args ${ARGN})
  set(input_option "")
  list(GET args 0 first)
  if(first STREQUAL "INPUT")
    list(GET args 1 input_file)
    list(REMOVE_AT args 0 1)
    set(input_option INPUT_FILE "${input_file}")
  endif()
  execute_process(COMMAND "${PROGRAM}" ${args} ${input_option}
    WORKING_DIRECTORY "${WORK_DIR}"
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status TIMEOUT 120)
  string(SUBSTRING "${out}" 0 400 out_start)
  if(NOT status STREQUAL want_status)
    set(failures "${failures}${name}: exit ${status}, expected ${want_status}\n${err}\n"
        PARENT_SCOPE)
  elseif(NOT out MATCHES "${out_regex}")
    set(failures "${failures}${name}: output does not match '${out_regex}':\n${out_start}\n"
        PARENT_SCOPE)
  elseif(NOT err MATCHES "${err_regex}")
    set(failures "${failures}${name}: errors do not match '${err_regex}':\n${err}\n" PARENT_SCOPE)
  endif()
endfunction()

# A script that is not text: NUL bytes and bytes that are no UTF-8.
string(ASCII 1 2 3 254 255 one_binary)
file(WRITE "${WORK_DIR}/binary.zks" "new ZKLabel A${one_binary}\nsave written.frm\n")
file(WRITE "${WORK_DIR}/nul.zks" "new ZKLabel A\n")
execute_process(COMMAND printf "save written.frm\\000\\n" OUTPUT_FILE "${WORK_DIR}/nul.zks")
expect(binary_script 2 "^$" "binary.zks is not a text file" script binary.zks)
expect(nul_script 2 "^$" "nul.zks is not a text file" script nul.zks)
expect(binary_standard_input 2 "^$" "standard input is not a text file"
       INPUT "${WORK_DIR}/binary.zks" script -)
expect(missing_script 2 "^$" "cannot read missing.zks" script missing.zks)
expect(directory_script 2 "^$" "cannot read ${WORK_DIR}" script "${WORK_DIR}")
if(EXISTS "${WORK_DIR}/written.frm")
  set(failures "${failures}a refused script wrote a file\n")
endif()

# One statement on a line of ten million characters: an error line, and the next line still runs.
string(REPEAT "x" 10000000 long)
file(WRITE "${WORK_DIR}/long_line.zks" "? \"${long}\" junk\n? \"next\"\n")
expect(long_line 1 "^error 5: [^\n]*\nnext\n$" "^$" script long_line.zks)

# Form files that are cut short or not form files: an error naming the line, the form unchanged.
file(WRITE "${WORK_DIR}/saved.zks"
  "new ZKLabel A\nA.Caption = \"kept\"\nsave whole.frm\n")
expect(save_form 0 "^$" "^$" script saved.zks)
file(READ "${WORK_DIR}/whole.frm" whole)
string(SUBSTRING "${whole}" 0 60 truncated)
file(WRITE "${WORK_DIR}/truncated.frm" "${truncated}")
file(WRITE "${WORK_DIR}/binary.frm" "${one_binary}${one_binary}\n")
file(WRITE "${WORK_DIR}/load.zks"
  "new ZKLabel B\nB.Caption = \"mine\"\nload truncated.frm\nload binary.frm\n? B.Caption\n")
expect(load_bad_forms 1
  "^error 31037: Error loading from file \\(line [0-9]+\\)[^\n]*\nerror 31037: Error loading from file \\(line 1\\)[^\n]*\nmine\n$"
  "^$" script load.zks)

# Archive strings: unknown kinds, empty strings, strings longer than an argument may be.
expect(unknown_kind 2 "^$" "Unknown control kind: Nope" archive explain Nope "a")
file(WRITE "${WORK_DIR}/empty.txt" "")
expect(empty_archive 0 "ParseArchiveStr: False" "^$" INPUT "${WORK_DIR}/empty.txt" archive explain ZKLabel -)
string(REPEAT "x" 10000000 huge)
file(WRITE "${WORK_DIR}/huge.txt" "${huge}\n")
expect(huge_archive 0 "^ZKLabel: 17 elements expected, 1 found" "^$"
       INPUT "${WORK_DIR}/huge.txt" archive explain ZKLabel -)
expect(binary_archive 2 "^$" "not text" INPUT "${WORK_DIR}/binary.zks" archive split -)

if(failures)
  message(FATAL_ERROR "${failures}")
endif()
