# kebu_windows_module(TARGET FILETYPE DESCRIPTION): gives a DLL or program its version resource, and moves
# its symbols to FILE.debug beside it, where a debugger looks for them.
function(kebu_windows_module target type description)
  set(KEBU_MODULE_TYPE ${type})
  set(KEBU_MODULE_DESCRIPTION ${description})
  set(KEBU_MODULE_NAME ${target})
  set(KEBU_MODULE_FILE ${target}.exe)
  if(type STREQUAL VFT_DLL)
    set(KEBU_MODULE_FILE ${target}.dll)
  endif()
  string(REPLACE . "," KEBU_VERSION_NUMBERS ${PROJECT_VERSION}.0)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/src/windows/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
  set(symbols ${KEBU_MODULE_FILE}.debug)
  # Else objcopy writes the time.
  set(objcopy ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 ${CMAKE_OBJCOPY})
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${objcopy} --only-keep-debug ${KEBU_MODULE_FILE} ${symbols}
    COMMAND ${objcopy} --strip-all --add-gnu-debuglink=${symbols} ${KEBU_MODULE_FILE}
    WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}>
    BYPRODUCTS ${PROJECT_BINARY_DIR}/workbench/${symbols}
    COMMENT "Moving the symbols of ${KEBU_MODULE_FILE} to ${symbols}" VERBATIM)
endfunction()
