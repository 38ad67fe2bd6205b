# Install rules and the Debian package.
#
#   cmake --install build --prefix P     installs into P: the two programs in bin/, the report
#                                        templates, the desktop entry, the icon and the
#                                        AppStream metainfo under share/
#   scripts/package.sh                   builds quillorne_<version>_amd64.deb with CPack
include(GNUInstallDirs)

install(TARGETS quillorne quillorne-admin RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The program finds its templates in ../share/quillorne/templates beside its bin folder.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/config/
        DESTINATION ${CMAKE_INSTALL_DATADIR}/quillorne/templates
        FILES_MATCHING PATTERN "*.xltx")
install(FILES ${PROJECT_SOURCE_DIR}/data/quillorne.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/icons/quillorne.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 48 256)
  install(FILES ${PROJECT_SOURCE_DIR}/data/icons/quillorne-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME quillorne.png)
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/data/org.quillorne.Quillorne.metainfo.xml
               ${PROJECT_BINARY_DIR}/org.quillorne.Quillorne.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/org.quillorne.Quillorne.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The Debian package. dpkg-shlibdeps works out the packages of the libraries the programs link;
# the database drivers and the display plugin are loaded at run time, so the packages that own
# those files here are asked for by name.
function(quillorne_owning_package file out)
  execute_process(COMMAND dpkg-query -S ${file} OUTPUT_VARIABLE owner ERROR_QUIET
                  OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed)
  if(failed OR owner STREQUAL "")
    message(WARNING "No Debian package owns ${file}; the package will not depend on it")
    set(${out} "" PARENT_SCOPE)
    return()
  endif()
  string(REGEX REPLACE "[:,].*" "" owner "${owner}")
  set(${out} ${owner} PARENT_SCOPE)
endfunction()

set(runtime_packages "")
set(qt_plugins ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS})
foreach(plugin sqldrivers/libqsqlite.so sqldrivers/libqsqlpsql.so platforms/libqxcb.so)
  quillorne_owning_package(${qt_plugins}/${plugin} owner)
  if(owner)
    list(APPEND runtime_packages ${owner})
  endif()
endforeach()
list(REMOVE_DUPLICATES runtime_packages)
list(JOIN runtime_packages ", " runtime_depends)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillorne)
set(CPACK_PACKAGE_VENDOR "Quillorne")
set(CPACK_PACKAGE_CONTACT "Quillorne maintainers <maintainers@quillorne.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Office administration for a small or medium organisation")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
       "Personnel files, the IT helpdesk, the asset register, suppliers and the telephone\n"
       "directory, training and petty cash, with their reports and spreadsheet exports, on an\n"
       "embedded database or a shared PostgreSQL server.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${runtime_depends}")
# pg_dump and pg_restore make and restore the backups of a PostgreSQL database; an embedded
# installation does without them.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "postgresql-client")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://quillorne.invalid/")
include(CPack)
