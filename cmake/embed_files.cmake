# Writes OUTPUT: the files below FOLDER as byte arrays, by their names relative to FOLDER.
file(GLOB_RECURSE files RELATIVE ${FOLDER} ${FOLDER}/*)
list(SORT files)
set(arrays "")
set(entries "")
set(index 0)
foreach(file IN LISTS files)
  file(READ ${FOLDER}/${file} hex HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${hex}")
  string(APPEND arrays "const unsigned char bytes${index}[] = {${bytes}0};\n")
  string(LENGTH "${hex}" digits)
  math(EXPR size "${digits} / 2")
  string(APPEND entries "    {\"${file}\", bytes${index}, ${size}},\n")
  math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUTPUT} "// Made by the build from the files of one folder.
#include \"runtime/host/description/embedded.h\"
namespace {
${arrays}}  // namespace
namespace embedded {
extern const File ${SYMBOL}[] = {
${entries}    {nullptr, nullptr, 0},
};
}  // namespace embedded
")
