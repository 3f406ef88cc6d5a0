# The programs with their manual pages, the completion of their options, and the viewer's place in menus.

# Debian has another folder for packages.
set(DRAVONSET_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING "Where completions for zsh are installed")

set(programs qsdps)
if(DRAVONSET_HAVE_X11)
    list(APPEND programs qsdps-window qsdview)
    install(FILES tools/desktop/qsdview.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES tools/desktop/qsdview.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
foreach(program IN LISTS programs)
    if(BUILD_SHARED_LIBS)
        set_target_properties(${program} PROPERTIES INSTALL_RPATH "\$ORIGIN/${libraries}")
    endif()
    install(TARGETS ${program})
    install(FILES docs/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES tools/completions/bash/${program} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES tools/completions/zsh/_${program} DESTINATION ${DRAVONSET_ZSH_DIR})
    install(FILES tools/completions/fish/${program}.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endforeach()
