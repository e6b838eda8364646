#include "fuzz/ImportAndVerify.h"

#include "Import/ImportError.h"
#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeFileWriter.h"
#include "fuzz/MemoryLimit.h"

#include <cstdlib>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace Fuzz {

namespace {

/// Records of records make a walk of any length in few bytes; what is too long for the verifier's
/// patience is no fault of an importer.
bool isUnsound(const TypeFile::Finding& finding) {
    using TypeFile::FindingCode;
    return finding.severity == TypeFile::Severity::ERROR &&
           finding.code != FindingCode::WALK_TOO_LARGE &&
           finding.code != FindingCode::NESTING_TOO_DEEP;
}

} // namespace

int importAndVerify(const std::uint8_t* data, std::size_t size, const ReadInput& read) {
    const MemoryLimit limit(memoryFor(size));
    try {
        std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
        Import::Input input(stream, "input");
        Import::Notes notes;
        Import::TypeTable types;
        read(input, types, notes);
        TypeFile::TypeFileWriter writer;
        for (const auto& type : types.finish({}, notes))
            writer.add(*type);
        const std::vector<char> file = writer.finish();
        OVAT::MemoryBlockManager storage(file.data(), file.size());
        TypeFile::VerifyLimits limits;
        limits.maxWalkSteps = 1U << 16;
        for (const TypeFile::Finding& finding : TypeFile::verify(storage, file.size(), 0, limits)) {
            if (isUnsound(finding))
                std::abort();
        }
    } catch (const Import::ImportError&) {
    } catch (const TypeFile::WriteError&) {
    } catch (const std::bad_alloc&) {
    }
    return 0;
}

} // namespace Fuzz
