#pragma once

#include "OVAT/IBlockManager.h"

#include <memory>
#include <string>

/// What a path means that stands for standard input or output.
inline constexpr char STANDARD_STREAM[] = "-";

/// A storage file, or all that standard input has for the path "-".
class InputStorage : public OVAT::IBlockManager {
public:
    /// Throws std::system_error, with the path in its text, for what cannot be read.
    explicit InputStorage(const std::string& path);
    ~InputStorage() override;

    /// Always true. Throws UnusableFile where the bytes do not all lie in the storage.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    unsigned long long size() const { return m_size; }

    /// As messages name it.
    const std::string& path() const { return m_path; }

private:
    template <typename Storage> void hold(std::unique_ptr<Storage> storage) {
        m_size = storage->size();
        m_storage = std::move(storage);
    }

    std::string m_path;
    std::unique_ptr<OVAT::IBlockManager> m_storage;
    unsigned long long m_size = 0;
};
