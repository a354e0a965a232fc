# Runs a program, and fails unless what it prints is the text of a file.
#
#     cmake -D program=PROGRAM -D expected=FILE -P compare_output.cmake
execute_process(COMMAND "${program}" OUTPUT_VARIABLE printed RESULT_VARIABLE status)
file(READ "${expected}" wanted)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${program} ended with ${status}, after it had printed:\n${printed}")
endif()
if(NOT printed STREQUAL wanted)
  message(FATAL_ERROR "${program} printed:\n${printed}\nand not, as ${expected} has it:\n${wanted}")
endif()
