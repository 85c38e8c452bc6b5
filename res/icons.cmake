# Renders the SVG icons of res/icons into strips and the program's icon; see res/icons/README.md.

set(icon_tree
  blattwart-small drawings library dwt-selected dwg-selected dwt dwg layout layout-selected
  not-active library-empty drawing drawing-selected)
set(icon_toolbar
  new open save copy delete layout-new layout-import model activate design-centre
  view-large view-small view-list view-details ascending descending help
  folder sheet-blank save-as-file search more)
set(icon_list_small drawing layout detail dwt dwg)
set(icon_list_large drawing-large layout-large detail-large dwt-large dwg-large)

# Appends to `commands` what renders one SVG as a square PNG.
macro(icon_render svg size png)
  list(APPEND commands COMMAND rsvg-convert -w ${size} -h ${size} ${svg} -o ${png})
endmacro()

# A strip of pictures of one size, as a 32-bit bitmap.
function(icon_strip name size)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
  set(commands)
  set(sources)
  set(pictures)
  foreach(icon ${ARGN})
    set(svg ${PROJECT_SOURCE_DIR}/res/icons/${icon}.svg)
    set(png ${folder}/${name}-${size}-${icon}.png)
    list(APPEND sources ${svg})
    list(APPEND pictures ${png})
    icon_render(${svg} ${size} ${png})
  endforeach()
  add_custom_command(
    OUTPUT ${folder}/${name}-${size}.bmp
    ${commands}
    COMMAND convert ${pictures} -background none +append -strip BMP:${folder}/${name}-${size}.bmp
    DEPENDS ${sources}
    COMMENT "Icons: ${name}, ${size} pixels")
  set(icon_files ${icon_files} ${folder}/${name}-${size}.bmp PARENT_SCOPE)
endfunction()

# The program's icon in all sizes; the small ones have a drawing of their own.
function(icon_program)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
  set(sources ${PROJECT_SOURCE_DIR}/res/icons/blattwart-small.svg ${PROJECT_SOURCE_DIR}/res/icons/blattwart.svg)
  set(commands)
  set(pictures)
  foreach(size 16 20 24 32 40 48 64 256)
    set(svg ${PROJECT_SOURCE_DIR}/res/icons/blattwart.svg)
    if(size LESS 40)
      set(svg ${PROJECT_SOURCE_DIR}/res/icons/blattwart-small.svg)
    endif()
    set(png ${folder}/blattwart-${size}.png)
    icon_render(${svg} ${size} ${png})
    if(size EQUAL 256)
      list(APPEND pictures -r)
    endif()
    list(APPEND pictures ${png})
  endforeach()
  add_custom_command(
    OUTPUT ${folder}/Blattwart.ico
    ${commands}
    COMMAND icotool -c -o ${folder}/Blattwart.ico ${pictures}
    DEPENDS ${sources}
    COMMENT "Icons: Blattwart.ico")
  set(icon_files ${icon_files} ${folder}/Blattwart.ico PARENT_SCOPE)
endfunction()

# Adds all pictures to a program as resources: renders them and compiles a generated icons.rc into `target`.
function(blattwart_icons target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
  file(MAKE_DIRECTORY ${folder})
  set(icon_files)
  icon_program()
  set(script "#include \"IconIds.h\"\nIDI_BLATTWART ICON \"Blattwart.ico\"\n")
  foreach(strip "TREE tree 1" "TOOLBAR toolbar 1" "LIST_SMALL list_small 1" "LIST_LARGE list_large 2")
    separate_arguments(strip UNIX_COMMAND "${strip}")
    list(GET strip 0 id)
    list(GET strip 1 name)
    list(GET strip 2 factor)
    set(scale 0)
    foreach(base 16 20 24 32)
      math(EXPR size "${base} * ${factor}")
      icon_strip(${name} ${size} ${icon_${name}})
      string(APPEND script "IDB_${id} + ${scale} BITMAP \"${name}-${size}.bmp\"\n")
      math(EXPR scale "${scale} + 1")
    endforeach()
  endforeach()
  file(CONFIGURE OUTPUT ${folder}/icons.rc CONTENT "${script}" @ONLY)
  set_source_files_properties(${folder}/icons.rc PROPERTIES OBJECT_DEPENDS "${icon_files}")
  target_sources(${target} PRIVATE ${folder}/icons.rc ${icon_files})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/res ${folder})
endfunction()
