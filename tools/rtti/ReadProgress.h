#pragma once

#include "OVAT/IBlockManager.h"
#include "Terminal.h"

/// A storage that passes reads on to another one, and takes the share of its bytes that have been
/// read for how far the reader has come.
class ReadProgress : public OVAT::IBlockManager {
public:
    ReadProgress(OVAT::IBlockManager& storage, Progress& progress)
        : m_storage(storage), m_progress(progress) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        m_storage.read(offset, buffer, count);
        m_done += static_cast<unsigned long long>(count);
        m_progress.at(m_done);
        return true;
    }

private:
    OVAT::IBlockManager& m_storage;
    Progress& m_progress;
    unsigned long long m_done = 0;
};
