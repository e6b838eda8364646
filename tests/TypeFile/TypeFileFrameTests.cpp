#include "TypeFile/TypeFileFrame.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using TypeFile::RecordFrame;
using TypeFile::TypeFileFrame;

constexpr unsigned int RECORD = 14; ///< Bytes of a string type whose name has one character.

/// The frame of an image, with the storage that it reads from.
struct Framed {
    explicit Framed(const std::string& image, unsigned long long base = 0)
        : storage(image), frame(storage, image.size(), base) {}

    RecordingBlockManager storage;
    TypeFileFrame frame;
};

TypeFileBuilder twoStrings() {
    TypeFileBuilder file;
    file.string("a").string("b");
    return file;
}

TEST(TypeFileFrame, GivesWhatTheHeaderSays) {
    const TypeFileBuilder file = twoStrings().base(100);
    const Framed framed(file.image(), 100);
    EXPECT_TRUE(framed.frame.hasHeader());
    EXPECT_EQ(framed.frame.version(), "Brakel Ovat TYPE FILE 001");
    EXPECT_TRUE(framed.frame.hasVersionText());
    EXPECT_FALSE(framed.frame.isMarkedUnusable());
    EXPECT_EQ(framed.frame.typeCount(), 2u);
    EXPECT_EQ(framed.frame.baseOffset(), 100u);
    EXPECT_EQ(framed.frame.tableOffset(), 140u + 2 * RECORD);
    EXPECT_EQ(framed.frame.tableSize(), 16u);
    EXPECT_TRUE(framed.frame.hasTable());
}

TEST(TypeFileFrame, GivesTheAddressesOfTheRecords) {
    Framed framed(twoStrings().image() + "12345678"); // Bytes behind the table are no address.
    EXPECT_EQ(framed.frame.entryOffset(1), 40u + 2 * RECORD + 8);
    EXPECT_EQ(framed.frame.addressOf(1), 40u + RECORD);
    EXPECT_THROW(framed.frame.addressOf(2), std::out_of_range);
    framed.storage.takeReads();
    EXPECT_THAT(framed.frame.addresses(), ElementsAre(40u, 40u + RECORD));
    EXPECT_EQ(framed.storage.takeReads().size(), 1u);
}

TEST(TypeFileFrame, ReadsTheHeaderAloneUntilItIsAsked) {
    Framed framed(twoStrings().image());
    EXPECT_THAT(framed.storage.takeReads(), ElementsAre(RecordingBlockManager::Read(0, 40)));
}

TEST(TypeFileFrame, OfAStorageThatEndsInTheHeaderHasNoTypes) {
    const Framed framed(twoStrings().image().substr(0, 39));
    EXPECT_FALSE(framed.frame.hasHeader());
    EXPECT_FALSE(framed.frame.hasVersionText());
    EXPECT_EQ(framed.frame.typeCount(), 0u);
    EXPECT_FALSE(Framed(twoStrings().image(), ~0ULL).frame.hasHeader());
}

TEST(TypeFileFrame, HasThoseEntriesOfACutTableThatAreWhole) {
    const std::string image = twoStrings().image();
    const Framed framed(image.substr(0, image.size() - 1));
    EXPECT_FALSE(framed.frame.hasTable());
    EXPECT_EQ(framed.frame.typeCount(), 2u);
    EXPECT_EQ(framed.frame.entryCount(), 1u);
    EXPECT_THAT(framed.frame.addresses(), ElementsAre(40u));
    EXPECT_THROW(framed.frame.addressOf(1), std::out_of_range);
}

TEST(TypeFileFrame, OfATableBehindTheStorageHasNoEntries) {
    const Framed framed(twoStrings().image().substr(0, 50));
    EXPECT_FALSE(framed.frame.hasTable());
    EXPECT_EQ(framed.frame.entryCount(), 0u);
    EXPECT_THAT(framed.frame.addresses(), ElementsAre());
}

TEST(TypeFileFrame, WithoutTypesNeedsNoTable) {
    std::string image = TypeFileBuilder().image();
    image[39] = '\x7f'; // The table is said to lie at 0x7f000028.
    EXPECT_TRUE(Framed(image).frame.hasTable());
}

TEST(TypeFileFrame, TellsVersionTextFromOtherBytes) {
    const auto hasText = [](const std::string& version) {
        return Framed(TypeFileBuilder().version(version).image()).frame.hasVersionText();
    };
    EXPECT_TRUE(hasText("TYPES 2"));
    EXPECT_FALSE(hasText("TYPES\x1b"));
    EXPECT_FALSE(hasText("TYPES\x7f"));
    EXPECT_FALSE(hasText("TYPES\x80"));
    EXPECT_TRUE(hasText(std::string(31, 'x')));
    EXPECT_FALSE(hasText(std::string(32, 'x')));
    EXPECT_TRUE(hasText("")); // An empty text is printable, too.
    EXPECT_FALSE(Framed(std::string(40, '\0')).frame.hasVersionText());
}

TEST(TypeFileFrame, KnowsTheMarkOfAnUnusableFile) {
    const auto isMarked = [](const std::string& version) {
        return Framed(TypeFileBuilder().version(version).image()).frame.isMarkedUnusable();
    };
    EXPECT_TRUE(isMarked("Brakel Ovat TYPE FILE 000"));
    EXPECT_FALSE(isMarked("Brakel Ovat TYPE FILE 0000"));
    EXPECT_FALSE(isMarked("Brakel Ovat TYPE FILE 00"));
}

RecordFrame lastRecord(const std::string& image) {
    Framed framed(image);
    return framed.frame.recordAt(framed.frame.addressOf(1));
}

TEST(RecordFrame, GivesSizeAndKind) {
    const RecordFrame record = lastRecord(twoStrings().image());
    EXPECT_EQ(record.address, 40u + RECORD);
    EXPECT_EQ(record.claimedSize, static_cast<int>(RECORD));
    EXPECT_EQ(record.kind, ClassId::STRING);
    EXPECT_EQ(record.room, RECORD + 16u); // The table lies behind.
    EXPECT_EQ(record.size(), RECORD);
    EXPECT_TRUE(record.isWhole());
}

TEST(RecordFrame, TakesNoMoreThanTheStorageHas) {
    const RecordFrame record = lastRecord(twoStrings().claim(RECORD + 17).image());
    EXPECT_EQ(record.claimedSize, static_cast<int>(RECORD) + 17);
    EXPECT_EQ(record.size(), RECORD + 16u);
    EXPECT_FALSE(record.isWhole());
    EXPECT_TRUE(lastRecord(twoStrings().claim(RECORD + 16).image()).isWhole());
}

TEST(RecordFrame, TakesNoLessThanSizeAndKind) {
    for (const int size : {7, 0, -1}) {
        const RecordFrame record = lastRecord(twoStrings().claim(size).image());
        EXPECT_EQ(record.size(), 8u) << size;
        EXPECT_FALSE(record.isWhole()) << size;
    }
    EXPECT_TRUE(lastRecord(twoStrings().claim(8).image()).isWhole());
}

TEST(RecordFrame, OfAnyAddressReadsWhatIsThere) {
    const std::string image = twoStrings().image();
    const Framed framed(image);
    const auto size = image.size();
    EXPECT_FALSE(framed.frame.recordAt(~0ULL).hasHead());
    EXPECT_EQ(framed.frame.recordAt(~0ULL).size(), 0u);
    EXPECT_EQ(framed.frame.recordAt(size).size(), 0u);
    EXPECT_EQ(framed.frame.recordAt(size - 3).size(), 3u);
    EXPECT_EQ(framed.frame.recordAt(size - 7).size(), 7u);
    EXPECT_FALSE(framed.frame.recordAt(size - 7).hasHead());
    EXPECT_TRUE(framed.frame.recordAt(size - 8).hasHead());
}

TEST(TypeFileFrame, SaysWhyNoTypesCanBeLoaded) {
    EXPECT_EQ(Framed(twoStrings().image()).frame.reasonUnusable(), "");
    EXPECT_EQ(Framed("short").frame.reasonUnusable(),
              "too short for a type file: 5 bytes, and the header takes 40 at offset 0");
    EXPECT_EQ(Framed(std::string(50, 'x'), 10).frame.reasonUnusable(),
              "not a type file: there is no version text at offset 10");
    const std::string image = twoStrings().image();
    EXPECT_EQ(
        Framed(image.substr(0, image.size() - 1)).frame.reasonUnusable(),
        "too short for its 2 types: the address table at 68 takes 16 bytes, and the file has 83");
}

} // namespace
