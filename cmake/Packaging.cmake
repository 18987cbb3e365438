# `cmake --install` puts the program into a prefix; `cpack -G DEB` makes a package of it.

# No mail can reach it: the authors are found through the sources alone.
set(ODOLEDGER_CONTACT authors@odoledger.invalid)

add_subdirectory(packaging)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME odoledger)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Odoledger authors")
set(CPACK_PACKAGE_CONTACT "The Odoledger authors <${ODOLEDGER_CONTACT}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "personal vehicle log: fuel, repairs, trips and expenses")
set(CPACK_PACKAGE_DESCRIPTION
"Odoledger keeps your vehicles and, for each, a log of fuel fills, repairs and
maintenance, trips and other expenses. It reminds you of what falls due at an
odometer reading or on a date, and works out fuel economy and cost.
It runs in a window, and under a script as odoledger-console; odoledger-tally
works on the log from the command line, imports and exports it.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS tzdata)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-dejavu-extra")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
