# param_add_library(<target> <source dir> <export macro prefix>)
#
# Builds a shared library from every .cpp below <source dir>, installs every .h
# below it beside the same relative path, and gives it hidden visibility with an
# export macro <PREFIX>_API defined in <source dir>/export.h.
function(param_add_library target dir prefix)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  # Headers under internal/ are the library's own and are not installed.
  set(public_headers ${headers})
  list(FILTER public_headers EXCLUDE REGEX "/internal/")
  add_library(${target} SHARED ${sources} ${headers})
  target_compile_definitions(${target} PRIVATE ${prefix}_BUILDING)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:param_build_flags>)
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR})
  # Installed, the libraries sit in one folder and find each other there, from
  # any prefix: a host that calls only libparam need not know about param_utils.
  if(APPLE)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "@loader_path")
  elseif(UNIX)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
  endif()
  install(TARGETS ${target} EXPORT paramTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  foreach(h ${public_headers})
    file(RELATIVE_PATH rel ${PROJECT_SOURCE_DIR} ${h})
    get_filename_component(reldir ${rel} DIRECTORY)
    install(FILES ${h} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${reldir})
  endforeach()
endfunction()
