// Any text is a tree dump of Verilator or refused; what is imported is a sound type file.

#include "Import/ImportOptions.h"
#include "Import/VerilatorTree.h"
#include "fuzz/ImportAndVerify.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return Fuzz::importAndVerify(
        data, size, [](Import::Input& input, Import::TypeTable& types, Import::Notes& notes) {
            Import::ImportOptions options;
            options.keepAnonymous = true;
            Import::readVerilatorTree(input, options, types, notes);
        });
}
