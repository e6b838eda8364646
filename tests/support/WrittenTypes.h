#pragma once

#include "Inspect/model/TypeTable.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"

#include <memory>
#include <string>
#include <vector>

namespace RTTITest {

using Ranges = std::vector<RTTI::FullConstraints>;

/// A member to be: its name, its type's id, and what narrows that.
struct NewMember {
    std::string name;
    unsigned int typeId;
    Ranges ranges = {};
};

/// Types that are written to a type file and loaded from there. Each function adds a type under the
/// next id and returns that; ids of types to come may be used.
class WrittenTypes {
public:
    unsigned int logic();
    unsigned int enumeration(const std::string& name, const std::vector<std::string>& literals);
    unsigned int integer(const std::string& name, RTTI::FullConstraints range);
    unsigned int string();
    unsigned int alias(const std::string& name, unsigned int typeId, const Ranges& ranges = {});

    /// With one dimension a range.
    unsigned int array(RTTI::ArrayKind kind, const std::string& name, unsigned int elementId,
                       const Ranges& ranges);
    unsigned int packed(unsigned int elementId, const Ranges& ranges) {
        return array(RTTI::VLOG_FIXED_PACKED_ARRAY, "", elementId, ranges);
    }
    unsigned int queue(unsigned int elementId);
    unsigned int access(const std::string& name, unsigned int typeId);
    unsigned int structure(const std::string& name, const std::vector<NewMember>& members);
    unsigned int classType(const std::string& name, const std::vector<NewMember>& members,
                           unsigned int baseId = RTTI::TypeFileFormat::NO_TYPE_ID);
    unsigned int add(const RTTI::RTBaseType& type) { return m_writer.add(type); }

    /// The types, loaded; called once all are there.
    Inspect::TypeTable table();

private:
    TypeFile::TypeFileWriter m_writer;
    std::unique_ptr<OVAT::OwningMemoryBlockManager> m_storage;
    RTTI::RTTypeManager m_manager;
};

} // namespace RTTITest
