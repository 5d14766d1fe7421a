# The Debian package, made by `cpack -G DEB` in a build folder from the same install rules as
# `cmake --install` (scripts/package.sh sets up, builds and packs).
set(CPACK_PACKAGE_NAME wavforge)
set(CPACK_PACKAGE_VENDOR "The wavforge developers")
set(CPACK_PACKAGE_CONTACT "The wavforge developers <wavforge@example.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://wavforge.example.org/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "encoder of WAV recordings to files named from their tags")
# Lines of at most 79 characters once dpkg indents them; no double quotes, which would not
# survive into CPackConfig.cmake.
set(CPACK_PACKAGE_DESCRIPTION
    "wavforge turns piles of WAV recordings into properly named MP3, Ogg Vorbis,
WMA or resampled WAV files. For each recording it reads the artist, title,
album and genre from its RIFF INFO tags, or from a file name of the form
Artist - Title, and builds the output folder and file name from templates.
One job script runs the encoders (lame, oggenc, sox, ffmpeg) at low priority;
a recording is only deleted once a complete output exists.

The package holds the desktop program wavforge and the command line program
wavforge-cli.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries come from dpkg-shlibdeps; Qt's platform plugins are loaded at run time, so it
# cannot see that the window needs them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
# Each encoder is needed only for its own formats, and a missing one costs no recording (the
# job keeps it and logs why), so they are recommended: apt installs them by default, and a
# user who never encodes WMA or WAV can leave out ffmpeg and what it pulls in. xdg-open opens
# the window's links; the fonts stand in for the ones the window names.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "lame, vorbis-tools, sox, ffmpeg, xdg-utils, fonts-dejavu-core, fonts-dejavu-extra, fonts-liberation2")

# Debian's changelog belongs to the package only, not to `cmake --install`: written into the
# staging folder just before packing.
string(TIMESTAMP changelog_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.Debian.in
               ${PROJECT_BINARY_DIR}/packaging/changelog.Debian @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/add_debian_changelog.cmake)
set(CPACK_WAVFORGE_DEBIAN_CHANGELOG ${PROJECT_BINARY_DIR}/packaging/changelog.Debian)

include(CPack)
