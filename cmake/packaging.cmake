# The Debian package: `cpack -G DEB` in a build tree. Binaries are stripped,
# the Depends line comes from dpkg-shlibdeps, and the files lintian asks for
# (copyright, changelog.gz, compressed man pages) are installed by data/.
set(CPACK_PACKAGE_NAME orvana)
set(CPACK_PACKAGE_VENDOR "Orvana")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Orvana maintainers <maintainers@orvana.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbench for learning digital signal processing")
set(CPACK_PACKAGE_DESCRIPTION
    "Orvana designs window-method FIR filters and sampled test signals, draws
their responses and spectra, and combines saved designs in Sum & Filter and
Multirate projects. Designs are kept in a per-user library. The package
holds the desktop program and orvana-cli, which runs the same models
without windows.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Only the programs and their data: no test or benchmark helpers.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
include(CPack)
