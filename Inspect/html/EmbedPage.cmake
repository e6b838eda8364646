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
# A literal a file: compilers need not take one of more than 65,536 bytes.
set(script "")
set(script_literals "")
foreach(path IN LISTS SCRIPTS)
    file(READ "${path}" part)
    string(APPEND script "${part}")
    literal_of("${part}" part)
    string(APPEND script_literals "\n    ${part},")
endforeach()
string(SHA256 style_hash "${style}")
string(SHA256 script_hash "${script}")

literal_of("${page}" page)
literal_of("${style}" style)
file(WRITE "${OUTPUT}" "// Made from the files of Inspect/html.
#include \"Inspect/html/PageText.h\"

namespace Inspect::PageText {

const std::string_view PAGE =
    ${page};
const std::string_view STYLE =
    ${style};
static constexpr std::string_view SCRIPTS[] = {${script_literals}
};
const std::span<const std::string_view> SCRIPT = SCRIPTS;
const std::string_view STYLE_HASH = \"${style_hash}\";
const std::string_view SCRIPT_HASH = \"${script_hash}\";

} // namespace Inspect::PageText
")
