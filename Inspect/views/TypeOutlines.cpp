#include "Inspect/views/TypeOutlines.h"

#include "Inspect/json/PartJson.h"
#include "TypeFile/FieldReader.h"
#include "TypeFile/RecordOrder.h"
#include "TypeFile/TypeFields.h"
#include "TypeFile/TypeFileFrame.h"

#include <algorithm>
#include <string>

namespace Inspect {

using namespace RTTI;
using TypeFile::FieldForm;
using TypeFile::LinkRole;
using TypeFile::ReadField;
namespace Layout = TypeFile::Layout;

namespace {

/// Records are read in blocks that stay in a cache.
constexpr std::size_t BLOCK = 1 << 16;

std::size_t partsOf(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::RECORD:
    case ClassId::CLASS: return static_cast<const RTAggregateType&>(type).m_members.size();
    case ClassId::SEQ_ENUM: return static_cast<const RTSeqEnumType&>(type).m_enumeratorNames.size();
    case ClassId::DISCRETE_ENUM:
        return static_cast<const RTDiscreteEnumType&>(type).m_enumerators.size();
    case ClassId::PHYSICAL: return static_cast<const RTPhysicalType&>(type).m_units.size();
    default: return 0;
    }
}

bool isByValue(const RTBaseType& type, LinkRole role) {
    switch (role) {
    case LinkRole::ELEMENT: return type.GetClassId() == ClassId::ARRAY;
    case LinkRole::ALIASED:
    case LinkRole::BASE_TYPE:
    case LinkRole::BASE_CLASS:
    case LinkRole::MEMBER: return true;
    default: return false;
    }
}

} // namespace

/// Makes an outline of each record that it is given.
class TypeOutlines::RecordReader {
public:
    RecordReader(OVAT::IBlockManager& storage, unsigned long long storageSize,
                 std::vector<Link>& links)
        : m_window(storage, storageSize, BLOCK), m_links(links) {}

    Outline outlineAt(unsigned long long address) {
        const TypeFile::RecordFrame record = TypeFile::recordFrameAt(m_window, address);
        m_outline = Outline();
        m_outline.bytes = static_cast<unsigned int>(std::max(record.claimedSize, 0));
        if (!TypeFile::buildsType(record.kind))
            return m_outline;
        m_outline.kindCode = record.kind;
        m_outline.linksBegin = m_links.size();
        m_name.clear();
        m_detail = 0;
        TypeFile::FieldReader reader(m_window, address, address + record.size(),
                                     [this](const ReadField& field) { return take(field); });
        reader.read(Layout::HEAD);
        reader.read(TypeFile::bodyLayout(record.kind));
        m_outline.linkCount = static_cast<unsigned int>(m_links.size() - m_outline.linksBegin);
        if (record.kind == ClassId::ARRAY || record.kind == ClassId::RECORD)
            m_outline.detail = m_detail;
        m_outline.language = languageOfKind(record.kind, m_detail, m_name);
        return m_outline;
    }

private:
    bool take(const ReadField& field) {
        switch (field.layout->form) {
        case FieldForm::NAME: takeName(field); break;
        case FieldForm::TYPE_ID: takeLink(field.word, field.layout->link); break;
        case FieldForm::NAMED: m_detail = field.word; break;
        case FieldForm::FLAVOUR:
            takeFlavour(static_cast<int>(field.word), field.layout->last);
            break;
        default: break;
        }
        return true;
    }

    /// The type's own, or that of an entry. Languages have names of their own for integers alone.
    void takeName(const ReadField& field) {
        if (field.list != nullptr)
            ++m_outline.parts;
        else if (m_outline.kindCode == ClassId::INT && field.isWhole && field.size <= BLOCK)
            m_name = m_window.at(field.offset, static_cast<std::size_t>(field.size));
    }

    void takeLink(unsigned int typeId, unsigned char link) {
        m_links.push_back({typeId, TypeFile::Link::has(link, TypeFile::Link::WALKED),
                           TypeFile::Link::has(link, TypeFile::Link::BASE_CLASS)});
    }

    void takeFlavour(int flavour, int last) {
        m_detail = static_cast<unsigned int>(flavour <= last ? flavour : 0);
    }

    TypeFile::StorageWindow m_window;
    std::vector<Link>& m_links;
    Outline m_outline;
    std::string m_name;        ///< Of an integer.
    unsigned int m_detail = 0; ///< As `languageOfKind` takes it.
};

TypeOutlines::TypeOutlines(OVAT::IBlockManager& storage, unsigned long long storageSize,
                           unsigned long long baseOffset) {
    const std::vector<unsigned long long> addresses =
        TypeFile::TypeFileFrame(storage, storageSize, baseOffset).addresses();
    const TypeFile::RecordOrder order(addresses);
    RecordReader records(storage, storageSize, m_links);
    m_types.resize(addresses.size());
    for (std::size_t place = 0; place < addresses.size(); ++place)
        m_types[order.idAt(place)] = records.outlineAt(order.addressAt(place));
}

TypeOutlines::TypeOutlines(const TypeTable& types,
                           const std::function<unsigned long long(unsigned int)>& recordSizes) {
    m_types.resize(types.count);
    for (unsigned int id = 0; id < types.count; ++id) {
        if (const RTBaseType* type = types.typeOf(id))
            m_types[id] = outlineOf(*type);
        m_types[id].bytes = recordSizes(id);
    }
}

TypeOutlines::Outline TypeOutlines::outlineOf(const RTBaseType& type) {
    Outline outline;
    outline.kindCode = type.GetClassId();
    outline.detail = kindDetailOf(type);
    outline.parts = static_cast<unsigned int>(partsOf(type));
    outline.linksBegin = m_links.size();
    TypeFile::forEachReference(type, [&](unsigned int id, const auto& form, std::size_t) {
        m_links.push_back({id, isByValue(type, form.role), form.role == LinkRole::BASE_CLASS});
    });
    outline.linkCount = static_cast<unsigned int>(m_links.size() - outline.linksBegin);
    outline.language = Inspect::languageOf(type);
    return outline;
}

SourceLanguage TypeOutlines::languageOf(unsigned int id) const {
    for (int i = 0; i < LANGUAGE_CHAIN_LIMIT && hasType(id); ++i) {
        if (m_types[id].language)
            return *m_types[id].language;
        id = m_types[id].linkCount != 0 ? linksOf(id).front().typeId : TypeFileFormat::NO_TYPE_ID;
    }
    return SourceLanguage::VHDL;
}

} // namespace Inspect
