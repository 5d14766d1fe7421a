# cmake --install into a fresh prefix: one file of every install rule is there, and a program
# started through its link in bin finds the program folder behind it.
# Usage: cmake -DBUILD_DIR=<build> -DPREFIX=<fresh folder> -DHELP=HTML<major> -P install_test.cmake
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

foreach(file lib/wavforge/wavforge-encode lib/wavforge/LarkspurFix.ini lib/wavforge/Larkspur.nav
             lib/wavforge/${HELP}/German/search-index.js
             bin/wavforge bin/wavforge-cli bin/wavforge-cmd share/applications/wavforge.desktop
             share/metainfo/org.example.wavforge.metainfo.xml
             share/icons/hicolor/scalable/apps/wavforge.svg
             share/icons/hicolor/16x16/apps/wavforge.png share/man/man1/wavforge-cli.1.gz
             share/bash-completion/completions/wavforge-cli share/doc/wavforge/copyright)
  if(NOT EXISTS ${PREFIX}/${file})
    message(SEND_ERROR "not installed: ${file}")
  endif()
endforeach()

# In a home of its own: the settings are seeded on the first run.
foreach(variable HOME XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_RUNTIME_DIR TMPDIR)
  set(ENV{${variable}} ${PREFIX}/home)
endforeach()
set(ENV{XDG_DATA_DIRS} ${PREFIX}/home)
execute_process(COMMAND ${PREFIX}/bin/wavforge-cli expand %AppDir% OUTPUT_VARIABLE folder
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(REAL_PATH ${PREFIX}/lib/wavforge expected)
if(NOT folder STREQUAL expected)
  message(SEND_ERROR "wavforge-cli through bin/ took ${folder} for its folder, not ${expected}")
endif()
