#include "OpenedFile.h"

#include "Inspect/model/NameIndex.h"
#include "Inspect/model/TypeReferences.h"
#include "RTTI/TypeFileFormat.h"
#include "ReadProgress.h"
#include "TypeFile/RecordSearch.h"
#include "TypeNames.h"

#include <algorithm>
#include <deque>

#include <sys/resource.h>

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

/// What `use` makes of a storage. The share of it that has been read is the progress of `what`.
template <typename Use> auto withProgress(const char* what, InputStorage& storage, const Use& use) {
    Progress progress(std::string(what) + ' ' + storage.path(), storage.size());
    ReadProgress reads(storage, storage.size(), progress);
    return use(reads);
}

/// A manager whose types are not released: the program ends soon, and its memory with it.
RTTypeManager& newKeptManager() {
    static auto& kept = *new std::deque<RTTypeManager>;
    return kept.emplace_back();
}

rlim_t addressSpaceLimit() {
    rlimit limit{};
    return getrlimit(RLIMIT_AS, &limit) == 0 ? limit.rlim_cur : RLIM_INFINITY;
}

/// Bounds the program's address space: lists in a damaged file of a few bytes may claim millions of
/// entries, and the library makes room for all. A sanitizer reserves more than that.
void boundMemory(unsigned long long fileSize) {
    constexpr rlim_t FOR_THE_PROGRAM = rlim_t{1} << 30;
    constexpr rlim_t FOR_EACH_BYTE = 1 << 10;
    static const rlim_t before = addressSpaceLimit();
    static rlim_t needed = FOR_THE_PROGRAM;
    needed += FOR_EACH_BYTE * fileSize; // Of each file that is opened.
    rlimit limit{};
    if (IS_SANITIZED || getrlimit(RLIMIT_AS, &limit) != 0)
        return;
    limit.rlim_cur = std::min(before, needed);
    setrlimit(RLIMIT_AS, &limit);
}

} // namespace

std::vector<TypeFile::Finding> findingsOf(InputStorage& storage, unsigned long long offset) {
    return withProgress("verifying", storage, [&](OVAT::IBlockManager& reads) {
        return TypeFile::verify(reads, storage.size(), offset);
    });
}

OpenedFile::OpenedFile(const FileArguments& arguments, Verified verified)
    : m_arguments(arguments), m_storage(arguments.file),
      m_frame(m_storage, m_storage.size(), arguments.offset), m_manager(newKeptManager()),
      m_typeCount(m_frame.isMarkedUnusable() ? 0 : m_frame.typeCount()) {
    const bool isTableCut = m_typeCount != 0 && !m_frame.hasTable(); // The library would load none.
    if (!arguments.force || isTableCut)
        checkFrame();
    if (!arguments.force) {
        if (verified == Verified::WHOLE)
            refuseErrors(findingsOf(m_storage, arguments.offset));
        else
            m_verifier.emplace(m_storage, m_storage.size(), arguments.offset);
    } else {
        boundMemory(m_storage.size());
    }
    m_manager.setupDeserializer(m_storage, arguments.offset);
}

Inspect::TypeTable OpenedFile::types() {
    return {m_typeCount, [this](unsigned int id) { return load(id); }};
}

const RTBaseType* OpenedFile::load(unsigned int id) {
    if (m_verifier)
        refuseErrors(m_verifier->verify({id}));
    try {
        return m_manager.getRTType(id);
    } catch (const std::bad_alloc&) {
        throw UnusableFile(m_storage.path(),
                           "there is not enough memory for type " + std::to_string(id),
                           ExitStatus::UNUSABLE);
    }
}

Inspect::TypeTable OpenedFile::loadedTypes() {
    Progress progress("loading " + m_storage.path(), m_typeCount);
    for (unsigned int id = 0; id < m_typeCount; ++id) {
        load(id);
        progress.at(id);
    }
    return types();
}

unsigned int OpenedFile::idOf(const std::string& what, const std::string& type) {
    return typeIdOf(what, type, types(), [&] {
        return m_arguments.force
                   ? Inspect::NameIndex(loadedTypes()).idsOf(type)
                   : Inspect::withoutNamesakes(
                         types(), search([&](const auto& records) { return records.named(type); }));
    });
}

std::vector<unsigned int> OpenedFile::referringTo(unsigned int typeId) {
    return m_arguments.force
               ? Inspect::referringTo(typeId, loadedTypes())
               : search([=](const auto& records) { return records.referringTo(typeId); });
}

template <typename Find> std::vector<unsigned int> OpenedFile::search(const Find& find) {
    return withProgress("searching", m_storage, [&](OVAT::IBlockManager& reads) {
        return find(TypeFile::RecordSearch(reads, m_storage.size(), m_frame.baseOffset()));
    });
}

Inspect::TypeStatistics OpenedFile::statistics(unsigned int top) {
    if (!m_arguments.force)
        return withProgress("counting", m_storage, [&](OVAT::IBlockManager& reads) {
            return Inspect::statisticsOf(reads, m_storage.size(), m_frame.baseOffset(), top);
        });
    const auto sizeOf = [this, addresses = m_frame.addresses()](unsigned int id) {
        return static_cast<unsigned int>(
            std::max(0, m_frame.recordAt(addresses.at(id)).claimedSize));
    };
    return Inspect::statisticsOf(loadedTypes(), sizeOf, top);
}

void OpenedFile::checkFrame() const {
    const std::string reason = m_frame.reasonUnusable();
    if (!reason.empty())
        throw UnusableFile(m_storage.path(), reason);
}

void OpenedFile::refuseErrors(const std::vector<TypeFile::Finding>& findings) const {
    const auto error = std::find_if(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.severity == TypeFile::Severity::ERROR;
    });
    if (error == findings.end())
        return;
    const std::string place =
        m_arguments.offset == 0 ? "" : " --offset " + std::to_string(m_arguments.offset);
    throw UnusableFile(m_storage.path(), TypeFile::lineOf(*error) + " (see `rtti verify " +
                                             m_arguments.file + place +
                                             "`; --force loads it anyway)");
}

unsigned int OpenedFile::kindOf(unsigned int typeId) const { return recordOf(typeId).kind; }

TypeFile::RecordFrame OpenedFile::recordOf(unsigned int typeId) const {
    return m_frame.recordAt(m_frame.addressOf(typeId));
}
