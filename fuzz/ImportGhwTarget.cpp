// Any bytes are a GHW file or refused; what is imported is a sound type file.

#include "Import/GhdlDumps.h"
#include "fuzz/ImportAndVerify.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return Fuzz::importAndVerify(
        data, size, [](Import::Input& input, Import::TypeTable& types, Import::Notes& notes) {
            Import::GhdlDumps dumps;
            dumps.readWave(input);
            dumps.addTo(types, notes);
        });
}
