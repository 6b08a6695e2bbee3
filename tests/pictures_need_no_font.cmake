# The pictures come out the same where there is no font at all. Usage:
# cmake -DMAKE_PICTURES=PROGRAM -DPICTURES=BUILT_FOLDER -DFOLDER=SCRATCH_FOLDER -P FILE
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER}/pictures)
file(WRITE ${FOLDER}/fonts.conf "<fontconfig/>")
set(ENV{FONTCONFIG_FILE} ${FOLDER}/fonts.conf)
execute_process(COMMAND ${MAKE_PICTURES} ${FOLDER}/pictures COMMAND_ERROR_IS_FATAL ANY)
foreach(name splash banner@2x)
  file(SHA256 ${PICTURES}/${name}.png with_fonts)
  file(SHA256 ${FOLDER}/pictures/${name}.png without_fonts)
  if(NOT with_fonts STREQUAL without_fonts)
    message(SEND_ERROR "${name}.png depends on the fonts of the build")
  endif()
endforeach()
