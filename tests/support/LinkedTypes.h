#pragma once

#include "Inspect/model/TypeTable.h"
#include "RTTI/RTType.h"
#include "TypeFile/TypeBuilding.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Types that refer to one another by id, in the order in which they are added, from 0 on. The
/// table has the links that a loader would make.
class LinkedTypes {
public:
    template <typename Type> Type& add(const std::string& name) {
        auto type = std::make_unique<Type>();
        TypeFile::setName(*type, name);
        Type& added = *type;
        m_types.push_back(std::move(type));
        return added;
    }

    // Shorthands for what many tests need; each gives the id.
    unsigned int integer(const std::string& name, int left, int right);
    unsigned int enumeration(const std::string& name, const std::vector<std::string>& literals);
    unsigned int alias(const std::string& name, unsigned int data,
                       std::vector<RTTI::FullConstraints> ranges = {});
    unsigned int vhdlArray(const std::string& name, unsigned int element,
                           const std::vector<unsigned int>& indices,
                           std::vector<RTTI::FullConstraints> ranges);
    unsigned int array(RTTI::ArrayKind kind, const std::string& name, unsigned int element,
                       std::vector<RTTI::FullConstraints> ranges);
    unsigned int access(const std::string& name, unsigned int designated);

    /// SystemVerilog's logic and bit.
    unsigned int logic();
    unsigned int bit();

    /// A place in the table without a type.
    unsigned int hole();

    unsigned int last() const { return static_cast<unsigned int>(m_types.size()) - 1; }

    /// Links all types and gives them.
    Inspect::TypeTable table();

private:
    const RTTI::RTBaseType* at(unsigned int id) const;
    void link(RTTI::RTBaseType& type) const;

    std::vector<std::unique_ptr<RTTI::RTBaseType>> m_types;
};
