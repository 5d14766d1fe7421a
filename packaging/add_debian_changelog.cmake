# Run by cpack before packing: puts the compressed Debian changelog into the staged package.
set(doc_folder ${CPACK_TEMPORARY_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share/doc/wavforge)
file(MAKE_DIRECTORY ${doc_folder})
file(COPY_FILE ${CPACK_WAVFORGE_DEBIAN_CHANGELOG} ${doc_folder}/changelog.Debian)
execute_process(COMMAND gzip -9nf ${doc_folder}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
