# The template stores (Templates/Template.LFQ ... Template.SCE) are generated at build time from
# the one schema source. The generator is built from the schema files alone, so that it does not
# wait for the rest of the core library.
add_executable(norvo_make_templates
  ${PROJECT_SOURCE_DIR}/src/data/tools/make_templates.cpp
  ${PROJECT_SOURCE_DIR}/src/data/schema.cpp
  ${PROJECT_SOURCE_DIR}/src/data/file_kind.cpp)
target_include_directories(norvo_make_templates PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(norvo_make_templates PRIVATE norvo_options SQLite::SQLite3)
set_target_properties(norvo_make_templates PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tools AUTOMOC OFF)

set(norvo_template_files)
foreach(kind LFQ ULF VLF LAA GIN CAA MSD PRB VAL XYF SPC FLT SCE)
  list(APPEND norvo_template_files ${NORVO_OUTPUT_DIR}/Templates/Template.${kind})
endforeach()
add_custom_command(
  OUTPUT ${norvo_template_files}
  COMMAND norvo_make_templates ${NORVO_OUTPUT_DIR}/Templates
  DEPENDS norvo_make_templates
  COMMENT "Generating the data file templates")
add_custom_target(norvo_templates ALL DEPENDS ${norvo_template_files})
