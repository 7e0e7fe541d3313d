# cmake -DOUTPUT=file.cpp -DNAME=accessor -DSCRIPTS=a.sql;b.sql -P embed_scripts.cmake
# Writes the scripts, in the order given, as a C++ file whose function `accessor` lists them.
set(body "")
foreach(script IN LISTS SCRIPTS)
  get_filename_component(name "${script}" NAME)
  file(READ "${script}" text)
  string(FIND "${text}" ")sql\"" clash)
  if(NOT clash EQUAL -1)
    message(FATAL_ERROR "${script} holds the end mark of a raw string")
  endif()
  string(APPEND body "    {\"${name}\", R\"sql(${text})sql\"},\n")
endforeach()
file(WRITE "${OUTPUT}"
  "#include \"workbench/company/scripts.h\"\n\n"
  "namespace kebu::workbench {\n\n"
  "std::span<const Script> ${NAME}() {\n"
  "  static constexpr Script kScripts[] = {\n${body}  };\n"
  "  return kScripts;\n}\n\n"
  "}  // namespace kebu::workbench\n")
