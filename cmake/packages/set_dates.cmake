# cpack runs this before it packs: Debian's man pages are compressed, and all files get the date SOURCE_DATE_EPOCH if that
# variable is set.
if(CPACK_GENERATOR STREQUAL "DEB")
    execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -path */share/man/* -type f -exec gzip -9 -n {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
