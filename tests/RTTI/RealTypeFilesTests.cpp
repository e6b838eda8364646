// The type files of real designs load whole. The counts are the converters' own, as
// examples/typefiles/README.md lists them.

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace RTTI;

struct RealFile {
    const char* name;
    unsigned int types;
    std::map<unsigned int, unsigned int> byKind; ///< Empty where only the total is known.
};

std::ostream& operator<<(std::ostream& stream, const RealFile& file) { return stream << file.name; }

const std::vector<RealFile> realFiles = {{"ibex_slang",
                                          294,
                                          {{ClassId::ARRAY, 101},
                                           {ClassId::TYPEDEF, 98},
                                           {ClassId::DISCRETE_ENUM, 50},
                                           {ClassId::RECORD, 39},
                                           {ClassId::SEQ_ENUM, 5},
                                           {ClassId::STRING, 1}}},
                                         {"ibex_vltree",
                                          265,
                                          {{ClassId::TYPEDEF, 96},
                                           {ClassId::ARRAY, 80},
                                           {ClassId::DISCRETE_ENUM, 49},
                                           {ClassId::RECORD, 37},
                                           {ClassId::SEQ_ENUM, 2},
                                           {ClassId::STRING, 1}}},
                                         {"uvm_slang",
                                          2678,
                                          {{ClassId::TYPEDEF, 1650},
                                           {ClassId::CLASS, 739},
                                           {ClassId::ASSOC_ARRAY, 122},
                                           {ClassId::QUEUE, 69},
                                           {ClassId::DISCRETE_ENUM, 43},
                                           {ClassId::ARRAY, 23},
                                           {ClassId::DYNAMIC_ARRAY, 12},
                                           {ClassId::RECORD, 10},
                                           {ClassId::SEQ_ENUM, 6},
                                           {ClassId::STRING, 1},
                                           {ClassId::CHANDLE, 1},
                                           {ClassId::EVENT, 1},
                                           {ClassId::FLOAT, 1}}},
                                         {"neorv32_ghw",
                                          1336,
                                          {{ClassId::TYPEDEF, 1134},
                                           {ClassId::ARRAY, 98},
                                           {ClassId::RECORD, 77},
                                           {ClassId::SEQ_ENUM, 24},
                                           {ClassId::FLOAT, 2},
                                           {ClassId::INT, 1}}},
                                         {"neorv32_rti",
                                          366,
                                          {{ClassId::ARRAY, 145},
                                           {ClassId::TYPEDEF, 95},
                                           {ClassId::RECORD, 75},
                                           {ClassId::SEQ_ENUM, 45},
                                           {ClassId::FLOAT, 2},
                                           {ClassId::INT, 1},
                                           {ClassId::PHYSICAL, 1},
                                           {ClassId::ACCESS, 1},
                                           {ClassId::FILE_TYPE, 1}}},
                                         {"ieee_ghw", 51, {}},
                                         {"ieee_rti", 46, {}},
                                         {"vhkinds_ghw", 63, {}},
                                         {"vhkinds_rti", 67, {}},
                                         {"svkinds_slang", 104, {}},
                                         {"svkinds_vltree", 90, {}}};

class RealTypeFiles : public testing::TestWithParam<RealFile> {
protected:
    RealTypeFiles() : m_storage(std::string(EXAMPLE_TYPEFILES_DIR "/") + GetParam().name + ".typ") {
        m_manager.setupDeserializer(m_storage, 0);
    }

    OVAT::FileBlockManager m_storage;
    RTTypeManager m_manager;
};

TEST_P(RealTypeFiles, EveryTypeLoads) {
    const RTBaseType* last = m_manager.readAllRTTypes();
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last, m_manager.getRTType(GetParam().types - 1));
    EXPECT_EQ(m_manager.getRTType(GetParam().types), nullptr);
}

TEST_P(RealTypeFiles, HoldsTheKindsOfItsDesign) {
    m_manager.readAllRTTypes();
    std::map<unsigned int, unsigned int> byKind;
    for (unsigned int id = 0; id < GetParam().types; ++id)
        ++byKind[m_manager.getRTType(id)->GetClassId()];
    unsigned int total = 0;
    for (const auto& [kind, count] : byKind)
        total += count;
    EXPECT_EQ(total, GetParam().types);
    if (!GetParam().byKind.empty()) {
        EXPECT_EQ(byKind, GetParam().byKind);
    }
}

INSTANTIATE_TEST_SUITE_P(Designs, RealTypeFiles, testing::ValuesIn(realFiles),
                         [](const auto& file) { return std::string(file.param.name); });

TEST(UvmTypeFile, EachClassIsListedOnce) {
    OVAT::FileBlockManager storage(EXAMPLE_TYPEFILES_DIR "/uvm_slang.typ");
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    const std::vector<unsigned int>& ids = manager.getRTClassTypeIds();
    EXPECT_EQ(ids.size(), 739u);
    EXPECT_EQ(std::set<unsigned int>(ids.begin(), ids.end()).size(), 739u);
}

} // namespace
