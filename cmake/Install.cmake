# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# What is installed, and where: the usual places, below the prefix.
set(application_id example.pelmora.Pelmora)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(pelmora_datadir ${CMAKE_INSTALL_DATADIR}/pelmora)

install(TARGETS pelmora pelmora-batch RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

install(TARGETS pelmora-convert RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${PROJECT_SOURCE_DIR}/src/large/pelmora-large DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES
        ${packaging}/${application_id}.desktop
        ${packaging}/${application_id}.Convert.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/${application_id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${packaging}/icons/
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${PROJECT_SOURCE_DIR}/resources/pelmora_icon.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
    RENAME ${application_id}.svg)

# Not below share/doc: some systems leave that folder out, and the program opens the guide.
install(FILES ${PROJECT_BINARY_DIR}/docs/pelmora-user-guide.pdf ${PROJECT_SOURCE_DIR}/docs/large-data.md
    DESTINATION ${pelmora_datadir})
install(FILES
        ${PROJECT_SOURCE_DIR}/data/box-problem.txt
        ${PROJECT_SOURCE_DIR}/data/harman-24-psychological-tests.cor
        ${PROJECT_SOURCE_DIR}/data/survey.csv
        ${PROJECT_SOURCE_DIR}/data/README.md
    DESTINATION ${pelmora_datadir}/samples)

# pelmora_compress(<file> <name>): build/packaging/<name>, without a time stamp, so that it is reproducible.
function(pelmora_compress file name)
    set(compressed ${CMAKE_BINARY_DIR}/packaging/${name})
    add_custom_command(OUTPUT ${compressed}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packaging
        COMMAND gzip -9nc ${file} > ${compressed}
        DEPENDS ${file} VERBATIM)
    add_custom_target(compress_${name} ALL DEPENDS ${compressed})
endfunction()

# The manual pages name the version.
foreach(page pelmora pelmora-batch pelmora-convert pelmora-large)
    configure_file(${packaging}/${page}.1 ${CMAKE_BINARY_DIR}/packaging/${page}.1 @ONLY)
    pelmora_compress(${CMAKE_BINARY_DIR}/packaging/${page}.1 ${page}.1.gz)
    install(FILES ${CMAKE_BINARY_DIR}/packaging/${page}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
foreach(program pelmora-batch pelmora-convert pelmora-large)
    install(FILES ${packaging}/${program}.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME ${program})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/docs/analysis.schema.json DESTINATION ${pelmora_datadir})
