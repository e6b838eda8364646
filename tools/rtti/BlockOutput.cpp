#include "BlockOutput.h"

#include <cerrno>

#include <unistd.h>

BlockOutput::~BlockOutput() {
    m_stream.flush();
    m_stream.rdbuf(m_before);
}

BlockOutput::int_type BlockOutput::overflow(int_type c) {
    if (sync() != 0)
        return traits_type::eof();
    return traits_type::eq_int_type(c, traits_type::eof()) ? traits_type::not_eof(c)
                                                           : sputc(traits_type::to_char_type(c));
}

/// What cannot be written is dropped.
int BlockOutput::sync() {
    const char* at = pbase();
    while (at != pptr()) {
        const ssize_t count = ::write(m_descriptor, at, static_cast<std::size_t>(pptr() - at));
        if (count < 0 && errno != EINTR)
            break;
        at += count < 0 ? 0 : count;
    }
    const bool isWritten = at == pptr();
    clear();
    return isWritten ? 0 : -1;
}
