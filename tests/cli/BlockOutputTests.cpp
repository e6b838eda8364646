// The stream of the program's output: what reaches the file, and when.

#include "tools/rtti/BlockOutput.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <memory>
#include <ostream>
#include <string>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t BLOCK = 65536;

/// An empty file without a name.
class ScratchFile {
public:
    int descriptor() const { return fileno(m_file.get()); }
    std::size_t size() const {
        struct stat status {};
        EXPECT_EQ(fstat(descriptor(), &status), 0);
        return static_cast<std::size_t>(status.st_size);
    }
    std::string content() const {
        std::string text(size(), '\0');
        EXPECT_EQ(pread(descriptor(), text.data(), text.size(), 0),
                  static_cast<ssize_t>(text.size()));
        return text;
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file{std::tmpfile()};
};

/// A text of pieces that are all different.
std::string piece(int number, std::size_t size) {
    std::string text = std::to_string(number) + ' ';
    text.resize(size, static_cast<char>('a' + number % 26));
    return text;
}

TEST(BlockOutput, WritesWholeBlocksAndTheRestAtTheEnd) {
    for (const std::size_t size : {1UL, 7UL, 600UL, 1024UL, 1500UL, BLOCK - 1, BLOCK, BLOCK + 1}) {
        ScratchFile file;
        std::ostream stream(nullptr);
        std::string expected;
        {
            const BlockOutput output(stream, file.descriptor());
            for (int i = 0; expected.size() < 3 * BLOCK; ++i) {
                expected += piece(i, size);
                stream << piece(i, size);
                ASSERT_EQ(file.size() % BLOCK, 0U);
                ASSERT_LE(expected.size() - file.size(), BLOCK);
            }
            EXPECT_TRUE(stream.good());
        }
        EXPECT_EQ(file.content(), expected);
        EXPECT_EQ(stream.rdbuf(), nullptr);
    }
}

TEST(BlockOutput, WritesAllThatIsThereWhenItIsFlushed) {
    ScratchFile file;
    std::ostream stream(nullptr);
    const BlockOutput output(stream, file.descriptor());
    stream << "first" << std::flush;
    EXPECT_EQ(file.content(), "first");
    stream << ", then" << ' ';
    EXPECT_EQ(file.content(), "first");
    stream.put('x').flush();
    EXPECT_EQ(file.content(), "first, then x");
}

TEST(BlockOutput, TellsTheStreamOfAFailure) {
    const int full = open("/dev/full", O_WRONLY);
    ASSERT_GE(full, 0);
    std::ostream stream(nullptr);
    const BlockOutput output(stream, full);
    stream << std::string(BLOCK, 'x');
    EXPECT_TRUE(stream.good());
    stream << 'x';
    EXPECT_FALSE(stream.good());
    stream.clear();
    EXPECT_FALSE(stream << 'x' << std::flush);
    close(full);
}

/// A signal ends the call that waits for room in a pipe, with a part of the block written or none.
TEST(BlockOutput, GoesOnAfterASignal) {
    struct sigaction action {};
    struct sigaction before {};
    action.sa_handler = [](int) {};
    ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pthread_t writing = pthread_self();
    std::string read;
    std::thread reader([&] {
        char bytes[5000];
        for (int i = 0;; ++i) {
            if (i < 50) {
                usleep(1000);
                pthread_kill(writing, SIGUSR1);
            }
            const ssize_t count = ::read(ends[0], bytes, sizeof bytes);
            if (count <= 0)
                return;
            read.append(bytes, static_cast<std::size_t>(count));
        }
    });
    std::string expected;
    std::ostream stream(nullptr);
    {
        const BlockOutput output(stream, ends[1]);
        for (int i = 0; expected.size() < 8 * BLOCK; ++i) {
            expected += piece(i, 600);
            stream << piece(i, 600);
        }
    }
    close(ends[1]);
    reader.join();
    close(ends[0]);
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(read, expected);
}

} // namespace
