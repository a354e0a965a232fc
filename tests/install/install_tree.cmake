# Installs the build into a folder of its own and moves that elsewhere, where all consumers use it: whatever still asked
# for the first place would fail there.
file(REMOVE_RECURSE "${folder}")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${build}" --prefix "${folder}/first" --strip
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${folder}/first" "${folder}/moved")
