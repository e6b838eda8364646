#pragma once

#include "Import/GhdlDumps.h"
#include "RTTI/TypeFileFormat.h"

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

/// What an import makes of texts and bytes, a line a type, to compare at a glance.
class ImportedTypes {
public:
    ImportedTypes& wave(const std::string& bytes, const std::string& name = "w") {
        std::istringstream stream(bytes);
        Import::Input input(stream, name);
        m_dumps.readWave(input);
        return *this;
    }

    /// The lines of a listing, between its first and its last one.
    ImportedTypes& listing(const std::string& lines) {
        std::istringstream stream("DISP_RTI.Disp_All: ghdl_rtik_top\n" + lines +
                                  "ghdl_rtik_architecture, D=1, sloc=1:1: a\n");
        Import::Input input(stream, "l");
        m_dumps.readListing(input, m_notes);
        return *this;
    }

    /// Declarations of a package of a listing.
    ImportedTypes& package(const std::string& lines) {
        return listing("ghdl_rtik_package, D=1, sloc=1:1: p\n" + lines);
    }

    /// A line for each type that has a name: "t: array [0] of 2 (0 to 3)".
    std::vector<std::string> lines(const std::vector<std::string>& packages = {}) {
        Import::TypeTable table;
        m_dumps.addTo(table, m_notes);
        std::vector<std::string> lines;
        table.finish(packages, m_notes, [&](const RTTI::RTBaseType& type) {
            lines.push_back(std::string(type.m_name) + ": " + textOf(type));
        });
        return lines;
    }

    const std::vector<std::string>& notes() const { return m_noteLines; }

private:
    using Ranges = std::vector<RTTI::FullConstraints>;

    static std::string textOf(const Ranges& ranges) {
        std::string text;
        for (const RTTI::FullConstraints& range : ranges) {
            text += text.empty() ? " (" : ", ";
            text += range.dir == RTTI::TypeFileFormat::UNCONSTRAINED_DIRECTION
                        ? "open"
                        : std::to_string(range.si) + (range.dir == 1 ? " to " : " downto ") +
                              std::to_string(range.ei);
        }
        return text.empty() ? text : text + ")";
    }

    static std::string textOf(const RTTI::RTBaseType& type) {
        using namespace RTTI;
        std::ostringstream out;
        switch (type.GetClassId()) {
        case ClassId::SEQ_ENUM:
            out << "enum";
            for (const char* const name : static_cast<const RTSeqEnumType&>(type).m_enumeratorNames)
                out << ' ' << name;
            break;
        case ClassId::INT:
            out << "integer" << textOf(Ranges{static_cast<const RTIntType&>(type).m_constraint});
            break;
        case ClassId::FLOAT: {
            const auto& real = static_cast<const RTFloatType&>(type);
            out.precision(17);
            out << "real " << real.m_left << (real.m_direction == 1 ? " to " : " downto ")
                << real.m_right;
            break;
        }
        case ClassId::PHYSICAL:
            out << "physical";
            for (const auto& unit : static_cast<const RTPhysicalType&>(type).m_units)
                out << ' ' << unit.unitName << '=' << unit.value;
            break;
        case ClassId::ARRAY: {
            const auto& array = static_cast<const RTArrayType&>(type);
            out << "array [";
            for (const unsigned int index : array.m_indexTypeIds)
                out << (index == TypeFileFormat::NO_TYPE_ID ? "-" : std::to_string(index)) << ']';
            out << " of " << array.m_elementTypeId << textOf(array.m_constraints);
            break;
        }
        case ClassId::RECORD:
            out << "record";
            for (const auto* const member : static_cast<const RTRecordType&>(type).m_members)
                out << ' ' << member->m_memberName << ':' << member->m_typeId
                    << textOf(member->m_constraints);
            break;
        case ClassId::TYPEDEF: {
            const auto& alias = static_cast<const RTTypedefType&>(type);
            out << "subtype of " << alias.m_dataTypeId << textOf(alias.m_constraints);
            break;
        }
        case ClassId::ACCESS:
            out << "access " << static_cast<const RTAccessType&>(type).m_refTypeId;
            break;
        case ClassId::FILE_TYPE:
            out << "file " << static_cast<const RTFileType&>(type).m_refTypeId;
            break;
        default: out << "of no VHDL kind"; break;
        }
        return out.str();
    }

    Import::GhdlDumps m_dumps;
    std::vector<std::string> m_noteLines;
    Import::Notes m_notes{[this](const Import::Place& place, const std::string& text) {
        m_noteLines.push_back(place.text() + ": " + text);
    }};
};
