# cmake -DOUTPUT=FILE -DPAGE=FILE -DSTYLE=FILE -DSCRIPTS=FILE,... -P EmbedPage.cmake
#
# Writes a source file with the texts of the page, and the hashes by which the page allows them.
string(REPLACE "," ";" SCRIPTS "${SCRIPTS}")

# A literal a line: the compiler joins them.
function(literal_of text result)
    string(REPLACE "\\" "\\\\" text "${text}")
    string(REPLACE "\"" "\\\"" text "${text}")
    string(REPLACE "\n" "\\n\"\n    \"" text "${text}")
    set(${result} "\"${text}\"" PARENT_SCOPE)
endfunction()

file(READ "${PAGE}" page)
file(READ "${STYLE}" style)
set(script "")
foreach(path IN LISTS SCRIPTS)
    file(READ "${path}" part)
    string(APPEND script "${part}")
endforeach()
string(SHA256 style_hash "${style}")
string(SHA256 script_hash "${script}")

literal_of("${page}" page)
literal_of("${style}" style)
literal_of("${script}" script)
file(WRITE "${OUTPUT}" "// Made from the files of Inspect/html.
#include \"Inspect/html/PageText.h\"

namespace Inspect::PageText {

const std::string_view PAGE =
    ${page};
const std::string_view STYLE =
    ${style};
const std::string_view SCRIPT =
    ${script};
const std::string_view STYLE_HASH = \"${style_hash}\";
const std::string_view SCRIPT_HASH = \"${script_hash}\";

} // namespace Inspect::PageText
")
