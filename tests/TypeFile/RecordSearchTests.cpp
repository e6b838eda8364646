// Finding types by the bytes of their records, beside what the loaded types say.

#include "OVAT/FileBlockManager.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/RecordSearch.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

using Ids = std::vector<unsigned int>;

/// A search in an image that it keeps.
struct Searched {
    explicit Searched(const TypeFileBuilder& file)
        : image(file.image()), storage(image.data(), image.size()),
          records(storage, image.size(), file.baseOffset()) {}

    std::string image;
    OVAT::MemoryBlockManager storage;
    TypeFile::RecordSearch records;
};

TEST(RecordSearch, FindsTypesByTheirWholeName) {
    TypeFileBuilder file;
    file.integer("word").string("word_t").string("sword").integer("word");
    EXPECT_THAT(Searched(file).records.named("word"), ElementsAre(0u, 3u));
    EXPECT_THAT(Searched(file).records.named("wor"), IsEmpty());
}

TEST(RecordSearch, FindsTypesWithoutALetterInTheirName) {
    TypeFileBuilder file;
    file.integer("").integer("i");
    EXPECT_THAT(Searched(file).records.named(""), ElementsAre(0u));
}

TEST(RecordSearch, TakesNoMemberForATypeOfItsName) {
    TypeFileBuilder file;
    file.integer("i").structure({0}); // The member and the struct have other names.
    EXPECT_THAT(Searched(file).records.named("m"), IsEmpty());
}

TEST(RecordSearch, FindsReferencesInAllPlaces) {
    TypeFileBuilder file;
    file.integer("i").alias(0).packedArray(0).structure({1, 2, 0}).alias(1);
    EXPECT_THAT(Searched(file).records.referringTo(0), ElementsAre(1u, 2u, 3u));
    EXPECT_THAT(Searched(file).records.referringTo(1), ElementsAre(3u, 4u));
    EXPECT_THAT(Searched(file).records.referringTo(4), IsEmpty());
}

TEST(RecordSearch, TakesNoOtherNumberForAReference) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::INT, "j", 0x01010101).range(0x01010101, 0x01010101, 1);
    EXPECT_THAT(Searched(file).records.referringTo(0x01010101), IsEmpty());
}

TEST(RecordSearch, FindsAllTypesOfOneRecord) {
    TypeFileBuilder file;
    file.integer("i").alias(0).alias(0);
    std::string image = file.image();
    for (std::size_t i = 0; i < 8; ++i) // The last entry is that of the one before.
        image[file.tableOffset() + 16 + i] = image[file.tableOffset() + 8 + i];
    OVAT::MemoryBlockManager storage(image.data(), image.size());
    const TypeFile::RecordSearch records(storage, image.size(), 0);
    EXPECT_THAT(records.referringTo(0), ElementsAre(1u, 2u));
}

TEST(RecordSearch, GivesIdsInTheirOrderWhereverTheRecordsAre) {
    TypeFileBuilder file;
    file.integer("i").alias(0).alias(0).alias(0).arrange({3, 0, 2, 1});
    EXPECT_THAT(Searched(file).records.referringTo(0), ElementsAre(1u, 2u, 3u));
}

/// The storage is searched block by block; names lie across their ends, whatever the blocks are.
TEST(RecordSearch, FindsWhatLiesInTwoBlocks) {
    for (unsigned int shift = 0; shift < 24; ++shift) {
        TypeFileBuilder file;
        file.integer(std::string((1 << 17) - 80 + shift, 'x')).integer("across").alias(1);
        EXPECT_THAT(Searched(file).records.named("across"), ElementsAre(1u)) << shift;
        EXPECT_THAT(Searched(file).records.referringTo(1), ElementsAre(2u)) << shift;
    }
}

TEST(RecordSearch, FindsReferencesInRecordsOfAnySize) {
    TypeFileBuilder file;
    file.integer("i").structure(Ids(3000, 0)).structure(Ids(3000, 1));
    EXPECT_THAT(Searched(file).records.referringTo(1), ElementsAre(2u));
}

TEST(RecordSearch, LooksAtNothingOutsideTheStorage) {
    TypeFileBuilder file;
    file.integer("i").alias(0).claim(1000000);
    EXPECT_THAT(Searched(file).records.referringTo(0), IsEmpty());
    EXPECT_THAT(Searched(file).records.named("no such type"), IsEmpty());
}

class RealFiles : public testing::TestWithParam<const char*> {};

TEST_P(RealFiles, HaveTheTypesOfEachNameWhereTheLoaderHasThem) {
    OVAT::FileBlockManager storage(std::string(EXAMPLE_TYPEFILES_DIR "/") + GetParam() + ".typ");
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    std::map<std::string, Ids> names;
    for (unsigned int id = 0; const RTBaseType* type = manager.getRTType(id); ++id)
        names[type->m_name].push_back(id);
    const TypeFile::RecordSearch records(storage, storage.size(), 0);
    for (const auto& [name, ids] : names)
        EXPECT_EQ(records.named(name), ids) << name;
}

INSTANTIATE_TEST_SUITE_P(Examples, RealFiles,
                         testing::Values("svkinds_slang", "vhkinds_rti", "neorv32_ghw"),
                         [](const auto& tested) { return std::string(tested.param); });

} // namespace
