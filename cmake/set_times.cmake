# Gives everything that is packed the time in SOURCE_DATE_EPOCH, when it is set, so that the same source gives the same package.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
                  COMMAND_ERROR_IS_FATAL ANY)
endif()
