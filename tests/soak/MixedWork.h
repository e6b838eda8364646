#pragma once

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/LastingAnswers.h"

#include <array>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <vector>

namespace Soak {

using OVAT::FileBlockManager;

/// A table over a file: the storage, and the manager that reads from it.
class Table {
public:
    explicit Table(const std::string& path,
                   FileBlockManager::Access access = FileBlockManager::Access::MAP_WHERE_POSSIBLE);
    RTTI::RTTypeManager& manager() { return m_manager; }

private:
    FileBlockManager m_storage;
    RTTI::RTTypeManager m_manager;
};

/// A type file, and what is known of it from one thread alone: right for every other.
struct KnownFile {
    explicit KnownFile(const std::string& path);

    std::string path;
    std::vector<char> written; ///< What the writer makes of the types.
    std::size_t findings;      ///< Of the verifier.
    RTTITest::Answers lasting;
    RTTITest::Answers encodings; ///< The first ones.
};

/// What the threads have in common: the files, and tables that all of them ask. A thread puts a new
/// table in the place of an old one, and whoever asks the old one last destroys it.
class CommonTables {
public:
    /// `files` has to stay.
    explicit CommonTables(const std::vector<KnownFile>& files);

    const std::vector<KnownFile>& files() const { return m_files; }

    /// The table of a file, with all types loaded.
    std::shared_ptr<Table> get(std::size_t file);
    void replace(std::size_t file);

private:
    const std::vector<KnownFile>& m_files;
    std::mutex m_mutex;
    std::vector<std::shared_ptr<Table>> m_tables;
};

/// One thread's work: one action after the other, each on one of the files, at random.
class MixedWork {
public:
    /// A thread writes to the file `path`, which no other may touch.
    MixedWork(CommonTables& tables, unsigned int seed, std::string path);

    /// Does one action. Throws std::logic_error, with what was wrong and the file in its text, if a
    /// result is not the one that is known.
    void act();

    struct Action {
        const char* name;
        void (MixedWork::*act)(std::size_t file);
    };
    static const std::array<Action, 9> ACTIONS;

    /// How often each of ACTIONS has been done.
    const std::array<unsigned long long, 9>& counts() const { return m_counts; }

private:
    std::size_t below(std::size_t end);
    FileBlockManager::Access anyAccess();

    void load(std::size_t file);
    void loadSome(std::size_t file);
    void loadFromFailingStorage(std::size_t file);
    void askCommon(std::size_t file);
    void replaceCommon(std::size_t file);
    void write(std::size_t file);
    void writeFile(std::size_t file);
    void leaveUnwritten(std::size_t file);
    void verify(std::size_t file);

    CommonTables& m_tables;
    std::mt19937 m_random;
    std::string m_path;
    std::array<unsigned long long, 9> m_counts{};
};

} // namespace Soak
