# Makes the page PAGE of the guide GUIDE, with the program CMARK, in the frame TEMPLATE.
execute_process(COMMAND ${CMARK} --extension table ${GUIDE} OUTPUT_VARIABLE TEXT COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${GUIDE} heading LIMIT_COUNT 1)
string(REGEX REPLACE "^# " "" TITLE "${heading}")
configure_file(${TEMPLATE} ${PAGE} @ONLY)
# An unchanged page is not written, but it is up to date.
file(TOUCH ${PAGE})
