#pragma once

#include "OVAT/IBlockManager.h"
#include "Terminal.h"

#include <vector>

/// A storage that passes reads on to another one, and takes the share of its bytes that have been
/// read for how far the reader has come. What is read again counts once.
class ReadProgress : public OVAT::IBlockManager {
public:
    /// Bytes are told apart in pieces of this size.
    static constexpr unsigned long long PIECE = 1 << 16;

    ReadProgress(OVAT::IBlockManager& storage, unsigned long long size, Progress& progress)
        : m_storage(storage), m_isRead(size / PIECE + 1), m_progress(progress) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        m_storage.read(offset, buffer, count);
        const unsigned long long end = offset + static_cast<unsigned long long>(count);
        for (unsigned long long piece = offset / PIECE; piece * PIECE < end; ++piece)
            take(piece);
        m_progress.at(m_done);
        return true;
    }

private:
    void take(unsigned long long piece) {
        if (m_isRead[piece])
            return;
        m_isRead[piece] = true;
        m_done += PIECE;
    }

    OVAT::IBlockManager& m_storage;
    std::vector<bool> m_isRead; ///< Each piece.
    Progress& m_progress;
    unsigned long long m_done = 0;
};
