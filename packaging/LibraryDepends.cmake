# Run by CPack between staging and packing: adds the packages of the shared libraries to the dependencies. CPack's own
# mechanism calls file(1) in the C locale, which garbles the names of our programs.
set(work ${CPACK_TOPLEVEL_DIRECTORY}/shlibdeps)
file(MAKE_DIRECTORY ${work}/debian)
file(WRITE ${work}/debian/control "Source: ${CPACK_PACKAGE_NAME}\n\nPackage: ${CPACK_PACKAGE_NAME}\nArchitecture: any\n")
file(GLOB programs ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/youin-meibo/*)
list(FILTER programs EXCLUDE REGEX "/host$")
execute_process(COMMAND dpkg-shlibdeps --ignore-missing-info -O ${programs} WORKING_DIRECTORY ${work}
  OUTPUT_VARIABLE found OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "^shlibs:Depends=" "" found "${found}")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${found}, ${CPACK_DEBIAN_PACKAGE_DEPENDS}")
