# The rooms of the house: each folder below src/ is a library that sees the folders it names, what
# those see, and nothing else.
#
# A room finds headers by a view of its own: build/<preset>/rooms/<room> holds links to the headers
# of that folder alone. An include that runs up or sideways finds no file, so the compiler refuses it.

set(roomViews "${CMAKE_BINARY_DIR}/rooms")

# quillmark_view(FOLDER HEADER...): makes the view of a folder anew. Headers are paths below src/.
function(quillmark_view folder)
  string(REPLACE "/" "_" room "${folder}")
  file(REMOVE_RECURSE "${roomViews}/${room}")
  foreach(header IN LISTS ARGN)
    cmake_path(GET header PARENT_PATH place)
    file(MAKE_DIRECTORY "${roomViews}/${room}/${place}")
    file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/${header}" "${roomViews}/${room}/${header}" SYMBOLIC)
  endforeach()
endfunction()

# quillmark_room(FOLDER [USES FOLDER...] [LINK LIBRARY...] [WITH FOLDER...] [FACE HEADER...]): the
# library of src/FOLDER, named after it with the slashes as "_". USES names the rooms below it, WITH
# folders inside it that belong to the same library, FACE headers that others find in this room
# although they stand beside it. Rooms that precompile nothing share the headers of src/text.
function(quillmark_room folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;LINK;WITH;FACE;PRECOMPILE")
  string(REPLACE "/" "_" room "${folder}")
  set(headers ${arg_FACE})
  foreach(part IN ITEMS ${folder} ${arg_WITH})
    file(GLOB partHeaders CONFIGURE_DEPENDS RELATIVE "${CMAKE_SOURCE_DIR}/src" "src/${part}/*.h")
    file(GLOB partSources CONFIGURE_DEPENDS "src/${part}/*.cpp")
    list(APPEND headers ${partHeaders})
    list(APPEND sources ${partSources})
  endforeach()
  list(FILTER sources EXCLUDE REGEX "/(quillmark_radio_)?main\\.cpp$")
  quillmark_view(${folder} ${headers})

  set(library quillmark_${room})
  if(sources)
    list(TRANSFORM headers PREPEND "${CMAKE_SOURCE_DIR}/src/" OUTPUT_VARIABLE headerPaths)
    add_library(${library} STATIC ${sources} ${headerPaths})
    set(access PUBLIC)
    quillmark_compile(${library} PRECOMPILE ${arg_PRECOMPILE})
    if(QUILLMARK_PRECOMPILE AND NOT arg_PRECOMPILE)
      target_precompile_headers(${library} REUSE_FROM quillmark_text)
    endif()
  else()
    add_library(${library} INTERFACE)
    set(access INTERFACE)
  endif()
  target_include_directories(${library} ${access} "${roomViews}/${room}")
  if(QUILLMARK_COVERAGE)
    # A header's lines are counted where it lies, not where its link was found.
    target_compile_options(${library} ${access}
                           "-fprofile-prefix-map=${roomViews}/${room}/=${CMAKE_SOURCE_DIR}/src/")
  endif()
  list(TRANSFORM arg_USES REPLACE "/" "_")
  list(TRANSFORM arg_USES PREPEND quillmark_)
  target_link_libraries(${library} ${access} ${arg_USES} ${arg_LINK})
endfunction()
