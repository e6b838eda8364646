#include "tests/soak/MixedWork.h"

#include "RTTI/RTType.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeFileWriter.h"

#include <cstdio>
#include <stdexcept>
#include <utility>

namespace Soak {

using namespace RTTI;
using RTTITest::Answers;

namespace {

void addTypes(TypeFile::TypeFileWriter& writer, RTTypeManager& manager) {
    for (unsigned int id = 0; const RTBaseType* type = manager.getRTType(id); ++id)
        writer.add(*type);
}

std::vector<char> writtenFrom(RTTypeManager& manager) {
    TypeFile::TypeFileWriter writer;
    addTypes(writer, manager);
    return writer.finish();
}

std::size_t findingsOf(const std::string& path) {
    FileBlockManager storage(path);
    return TypeFile::verify(storage, storage.size(), 0).size();
}

void check(bool isRight, const char* what, const KnownFile& file) {
    if (!isRight)
        throw std::logic_error(file.path + ": " + what);
}

/// Reads from another storage, and throws at one of the reads.
class FailingStorage : public OVAT::IBlockManager {
public:
    FailingStorage(OVAT::IBlockManager& storage, std::size_t goodReads)
        : m_storage(storage), m_goodReads(goodReads) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (m_done++ == m_goodReads)
            throw std::runtime_error("the storage fails");
        return m_storage.read(offset, buffer, count);
    }

private:
    OVAT::IBlockManager& m_storage;
    std::size_t m_goodReads;
    std::size_t m_done = 0;
};

} // namespace

Table::Table(const std::string& path, FileBlockManager::Access access) : m_storage(path, access) {
    m_manager.setupDeserializer(m_storage, 0);
}

KnownFile::KnownFile(const std::string& file) : path(file), findings(findingsOf(file)) {
    Table table(path);
    encodings = RTTITest::encodings(table.manager());
    lasting = RTTITest::lastingAnswers(table.manager());
    written = writtenFrom(table.manager());
    check(!encodings.empty(), "there are no types", *this);
}

CommonTables::CommonTables(const std::vector<KnownFile>& files)
    : m_files(files), m_tables(files.size()) {
    for (std::size_t file = 0; file < files.size(); ++file)
        replace(file);
}

std::shared_ptr<Table> CommonTables::get(std::size_t file) {
    const std::lock_guard lock(m_mutex);
    return m_tables[file];
}

void CommonTables::replace(std::size_t file) {
    auto table = std::make_shared<Table>(m_files[file].path);
    table->manager().readAllRTTypes();
    const std::lock_guard lock(m_mutex);
    m_tables[file].swap(table);
}

const std::array<MixedWork::Action, 9> MixedWork::ACTIONS{{
    {"loads", &MixedWork::load},
    {"loads of some types", &MixedWork::loadSome},
    {"loads from failing storages", &MixedWork::loadFromFailingStorage},
    {"questions to common tables", &MixedWork::askCommon},
    {"common tables replaced", &MixedWork::replaceCommon},
    {"images written", &MixedWork::write},
    {"files written", &MixedWork::writeFile},
    {"writers left unfinished", &MixedWork::leaveUnwritten},
    {"files verified", &MixedWork::verify},
}};

MixedWork::MixedWork(CommonTables& tables, unsigned int seed, std::string path)
    : m_tables(tables), m_random(seed), m_path(std::move(path)) {}

void MixedWork::act() {
    const std::size_t file = below(m_tables.files().size());
    const std::size_t action = below(ACTIONS.size());
    (this->*ACTIONS[action].act)(file);
    ++m_counts[action];
}

std::size_t MixedWork::below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random);
}

FileBlockManager::Access MixedWork::anyAccess() {
    return below(2) == 0 ? FileBlockManager::Access::MAP_WHERE_POSSIBLE
                         : FileBlockManager::Access::POSITIONED_READS;
}

void MixedWork::load(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    Table table(file.path, anyAccess());
    table.manager().readAllRTTypes();
    check(RTTITest::encodings(table.manager()) == file.encodings, "other encodings", file);
    check(RTTITest::lastingAnswers(table.manager()) == file.lasting, "other answers", file);
}

void MixedWork::loadSome(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    Table table(file.path, anyAccess());
    for (int i = 0; i < 5; ++i) {
        const auto id = static_cast<unsigned int>(below(file.encodings.size() + 1));
        const bool isThere = table.manager().getRTType(id) != nullptr;
        check(isThere == (id < file.encodings.size()), "a type that is not there, or is", file);
    }
}

void MixedWork::loadFromFailingStorage(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    FileBlockManager bytes(file.path, anyAccess());
    FailingStorage storage(bytes, below(4 * file.encodings.size())); // Of one read and more.
    RTTypeManager manager;
    bool hasFailed = false;
    try {
        manager.setupDeserializer(storage, 0);
        manager.readAllRTTypes();
    } catch (const std::runtime_error&) {
        hasFailed = true;
        manager.setupDeserializer(storage, 0);
    }
    check(hasFailed, "no read failed", file);
    check(RTTITest::lastingAnswers(manager) == file.lasting, "other answers after failure", file);
}

void MixedWork::askCommon(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    const auto table = m_tables.get(number);
    check(RTTITest::encodings(table->manager()).size() == file.encodings.size(), "other types",
          file);
    check(RTTITest::lastingAnswers(table->manager()) == file.lasting, "other common answers", file);
}

void MixedWork::replaceCommon(std::size_t number) { m_tables.replace(number); }

void MixedWork::write(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    check(writtenFrom(m_tables.get(number)->manager()) == file.written, "other bytes", file);
}

void MixedWork::writeFile(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    TypeFile::TypeFileWriter writer;
    addTypes(writer, m_tables.get(number)->manager());
    writer.finishFile(m_path);
    Table table(m_path, anyAccess());
    check(RTTITest::lastingAnswers(table.manager()) == file.lasting, "other written types", file);
}

void MixedWork::leaveUnwritten(std::size_t number) {
    TypeFile::TypeFileWriter writer;
    addTypes(writer, m_tables.get(number)->manager());
}

void MixedWork::verify(std::size_t number) {
    const KnownFile& file = m_tables.files()[number];
    check(findingsOf(file.path) == file.findings, "other findings", file);
}

} // namespace Soak
