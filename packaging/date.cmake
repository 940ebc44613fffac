# The date of the package and of every file in it is that of its last entry of history, not that of the build, unless
# SOURCE_DATE_EPOCH tells another.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/debian/changelog" derniere REGEX "^ -- .*>  " LIMIT_COUNT 1)
  string(REGEX REPLACE "^ -- .*>  " "" date "${derniere}")
  execute_process(COMMAND date -d "${date}" +%s OUTPUT_VARIABLE secondes OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} "${secondes}")
endif()
