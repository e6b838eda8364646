#include "Inspect/diff/TypeComparison.h"

#include "Inspect/diff/ListAlignment.h"
#include "Inspect/diff/TypeWords.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Inspect {

using namespace RTTI;

namespace {

/// How many types without a name are looked through, for the words of a type or of a path, and for
/// what differs between two of them.
constexpr int DEPTH_LIMIT = 16;

bool isPlainIdentifier(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_' || c == '$' || c == ':';
    });
}

std::string pathName(std::string_view name) {
    return isPlainIdentifier(name) ? std::string(name) : quoted(name);
}

/// What leads from a type to the one that it refers to, in a path. Nothing for a typedef.
std::string stepText(const LinkPlace& place) {
    switch (place.role) {
    case LinkRole::ALIASED: return "";
    case LinkRole::BASE_TYPE:
    case LinkRole::BASE_CLASS: return ".<base>";
    case LinkRole::DESIGNATED: return ".all";
    case LinkRole::FILE_ELEMENT: return ".<element>";
    case LinkRole::ELEMENT: return "[]";
    case LinkRole::INDEX:
        return place.position == 0 ? "[index]" : fmt::format("[index {}]", place.position + 1);
    case LinkRole::MEMBER: return fmt::format(".{}", pathName(place.memberName));
    }
    return "";
}

/// The field that a reference of `from` is.
std::string linkField(const RTBaseType& from, const LinkPlace& place) {
    if (place.role == LinkRole::MEMBER)
        return TypeFile::Field::TYPE;
    const char* field = fieldOf(place.role, from.GetClassId());
    return from.GetClassId() == ClassId::ARRAY && place.role == LinkRole::INDEX
               ? fmt::format("{}[{}]", field, place.position)
               : field;
}

} // namespace

/// One comparison of two types, and of types without a name below them.
class TypeComparison::PairComparison {
public:
    PairComparison(const TypeComparison& comparison, unsigned int a, unsigned int b)
        : m_all(comparison), m_graph(comparison.m_graph), m_idA(m_graph.idOf(a)),
          m_idB(m_graph.idOf(b)), m_a(a), m_b(b) {}

    std::vector<TypeChange> changes() {
        compareTypes(m_a, m_b, m_all.pathTo(m_a), 0);
        return std::move(m_changes);
    }

private:
    void compareTypes(unsigned int a, unsigned int b, const std::string& path, int depth);
    void compareFields(const TypeShape& a, std::size_t beginA, std::size_t endA, const TypeShape& b,
                       std::size_t beginB, std::size_t endB, const std::string& path);
    void compareLinks(unsigned int a, unsigned int b, unsigned int linkA, unsigned int linkB,
                      const std::string& path, int depth);
    void compareParts(unsigned int a, const TypeShape& shapeA, unsigned int b,
                      const TypeShape& shapeB, const std::string& path, int depth);

    bool isSameTarget(unsigned int a, unsigned int b) const;
    bool canLookThrough(unsigned int a, unsigned int b) const;
    bool isSamePart(unsigned int a, const TypeShape& shapeA, std::size_t partA, unsigned int b,
                    const TypeShape& shapeB, std::size_t partB) const;
    std::string typeText(unsigned int node) const;
    std::string partText(unsigned int node, const TypeShape& shape, std::size_t part) const;

    void add(std::string path, std::string field, std::optional<std::string> before,
             std::optional<std::string> after) {
        m_changes.push_back(
            {m_idA, m_idB, std::move(path), std::move(field), std::move(before), std::move(after)});
    }

    const TypeComparison& m_all;
    const TypeGraph& m_graph;
    unsigned int m_idA, m_idB;
    unsigned int m_a, m_b;
    std::vector<TypeChange> m_changes;
};

void TypeComparison::PairComparison::compareTypes(unsigned int a, unsigned int b,
                                                  const std::string& path, int depth) {
    const RTBaseType* typeA = m_graph.typeOf(a);
    const RTBaseType* typeB = m_graph.typeOf(b);
    if (typeA == nullptr || typeB == nullptr || typeA->GetClassId() != typeB->GetClassId())
        return add(path, TypeFile::Field::KIND, kindWords(m_graph.tableOf(a), m_graph.idOf(a)),
                   kindWords(m_graph.tableOf(b), m_graph.idOf(b)));
    if (m_graph.name(a) != m_graph.name(b) && depth == 0)
        add(path, TypeFile::Field::NAME, quotedName(typeA->m_name), quotedName(typeB->m_name));
    const TypeShape shapeA(*typeA);
    const TypeShape shapeB(*typeB);
    compareFields(shapeA, 0, shapeA.ownFieldsEnd(), shapeB, 0, shapeB.ownFieldsEnd(), path);
    const unsigned int links = std::min(shapeA.ownLinksEnd(), shapeB.ownLinksEnd());
    for (unsigned int i = 0; i < links; ++i)
        compareLinks(a, b, i, i, path, depth);
    compareParts(a, shapeA, b, shapeB, path, depth);
}

/// Fields that stand at one place in both; a list of them can only be longer where a member or a
/// value is missing.
void TypeComparison::PairComparison::compareFields(const TypeShape& a, std::size_t beginA,
                                                   std::size_t endA, const TypeShape& b,
                                                   std::size_t beginB, std::size_t endB,
                                                   const std::string& path) {
    for (std::size_t i = beginA, j = beginB; i < endA || j < endB; ++i, ++j) {
        const bool isInBoth = i < endA && j < endB;
        if (isInBoth && isSameValue(a.fields[i].value, b.fields[j].value))
            continue;
        if (isInBoth) {
            auto [before, after] =
                differentTexts(a.fields[i].value, b.fields[j].value, m_all.m_lists);
            add(path, a.fields[i].name, std::move(before), std::move(after));
        } else if (i < endA) {
            add(path, a.fields[i].name, fieldText(a.fields[i].value, m_all.m_lists), std::nullopt);
        } else {
            add(path, b.fields[j].name, std::nullopt, fieldText(b.fields[j].value, m_all.m_lists));
        }
    }
}

/// What a reference leads to. Two types that were not found to be before and after of one another
/// are looked through where they have no names, so that the change is told where it lies.
void TypeComparison::PairComparison::compareLinks(unsigned int a, unsigned int b,
                                                  unsigned int linkA, unsigned int linkB,
                                                  const std::string& path, int depth) {
    const unsigned int targetA = m_graph.link(a, linkA);
    const unsigned int targetB = m_graph.link(b, linkB);
    if (isSameTarget(targetA, targetB))
        return;
    const LinkPlace place = placeOf(*m_graph.typeOf(a), linkA);
    // The step to a member is in its path already.
    const std::string below = place.role == LinkRole::MEMBER ? path : path + stepText(place);
    if (depth < DEPTH_LIMIT && canLookThrough(targetA, targetB))
        return compareTypes(targetA, targetB, below, depth + 1);
    std::string before = typeText(targetA);
    std::string after = typeText(targetB);
    if (before == after) {
        before += fmt::format(", type {}", m_graph.idOf(targetA));
        after += fmt::format(", type {}", m_graph.idOf(targetB));
    }
    add(path, linkField(*m_graph.typeOf(a), place), std::move(before), std::move(after));
}

void TypeComparison::PairComparison::compareParts(unsigned int a, const TypeShape& shapeA,
                                                  unsigned int b, const TypeShape& shapeB,
                                                  const std::string& path, int depth) {
    ListAlignment parts = alignLists(shapeA.partNames(), shapeB.partNames());
    const auto pathOf = [&](const TypeShape::Part& part) {
        return fmt::format("{}.{}", path, pathName(part.name));
    };
    for (const auto& match : parts.replaced) {
        const TypeShape::Part& partA = shapeA.parts[match.a];
        if (isSamePart(a, shapeA, match.a, b, shapeB, match.b)) {
            add(pathOf(partA), TypeFile::Field::NAME, quoted(partA.name),
                quoted(shapeB.parts[match.b].name));
        } else {
            parts.removed.push_back(match.a);
            parts.added.push_back(match.b);
        }
    }
    std::sort(parts.removed.begin(), parts.removed.end());
    std::sort(parts.added.begin(), parts.added.end());
    for (const unsigned int i : parts.removed)
        add(pathOf(shapeA.parts[i]), shapeA.parts[i].field, partText(a, shapeA, i), std::nullopt);
    for (const auto& match : parts.moved)
        add(pathOf(shapeA.parts[match.a]), "position", std::to_string(match.a),
            std::to_string(match.b));
    std::vector<ListAlignment::Match> common = std::move(parts.kept);
    common.insert(common.end(), parts.moved.begin(), parts.moved.end());
    std::sort(common.begin(), common.end(),
              [](const auto& left, const auto& right) { return left.a < right.a; });
    for (const auto& match : common) {
        const TypeShape::Part& partA = shapeA.parts[match.a];
        const TypeShape::Part& partB = shapeB.parts[match.b];
        const std::string partPath = pathOf(partA);
        compareFields(shapeA, partA.fieldsBegin, shapeA.fieldsEnd(match.a), shapeB,
                      partB.fieldsBegin, shapeB.fieldsEnd(match.b), partPath);
        if (partA.linksBegin < shapeA.linksEnd(match.a))
            compareLinks(a, b, partA.linksBegin, partB.linksBegin, partPath, depth);
    }
    for (const unsigned int i : parts.added)
        add(pathOf(shapeB.parts[i]), shapeB.parts[i].field, std::nullopt, partText(b, shapeB, i));
}

/// Whether two references lead to equal types, or to a type before and after its own change, which
/// is told there.
bool TypeComparison::PairComparison::isSameTarget(unsigned int a, unsigned int b) const {
    if (a >= m_graph.count() || b >= m_graph.count())
        return a == b;
    const auto& classes = m_all.m_classes;
    const unsigned int afterA = m_all.m_pairing.partner(a);
    const unsigned int beforeB = m_all.m_pairing.partner(b);
    return classes[a] == classes[b] ||
           (afterA != TypePairing::NONE && classes[afterA] == classes[b]) ||
           (beforeB != TypePairing::NONE && classes[beforeB] == classes[a]);
}

bool TypeComparison::PairComparison::canLookThrough(unsigned int a, unsigned int b) const {
    const RTBaseType* typeA = a < m_graph.count() ? m_graph.typeOf(a) : nullptr;
    const RTBaseType* typeB = b < m_graph.count() ? m_graph.typeOf(b) : nullptr;
    if (typeA == nullptr || typeB == nullptr || typeA->GetClassId() != typeB->GetClassId() ||
        isGivenName(typeA->m_name) || isGivenName(typeB->m_name))
        return false;
    return typeA->GetClassId() != ClassId::RECORD && typeA->GetClassId() != ClassId::CLASS &&
           typeA->GetClassId() != ClassId::SEQ_ENUM && typeA->GetClassId() != ClassId::PHYSICAL &&
           typeA->GetClassId() != ClassId::DISCRETE_ENUM;
}

/// Whether two parts differ in their names at most.
bool TypeComparison::PairComparison::isSamePart(unsigned int a, const TypeShape& shapeA,
                                                std::size_t partA, unsigned int b,
                                                const TypeShape& shapeB, std::size_t partB) const {
    const auto fieldsA = shapeA.fields.begin();
    const auto fieldsB = shapeB.fields.begin();
    const auto at = [](std::size_t i) { return static_cast<std::ptrdiff_t>(i); };
    if (!std::equal(
            fieldsA + at(shapeA.parts[partA].fieldsBegin), fieldsA + at(shapeA.fieldsEnd(partA)),
            fieldsB + at(shapeB.parts[partB].fieldsBegin), fieldsB + at(shapeB.fieldsEnd(partB)),
            [](const TypeField& left, const TypeField& right) {
                return isSameValue(left.value, right.value);
            }))
        return false;
    const unsigned int linkA = shapeA.parts[partA].linksBegin;
    return linkA == shapeA.linksEnd(partA) ||
           isSameTarget(m_graph.link(a, linkA), m_graph.link(b, shapeB.parts[partB].linksBegin));
}

std::string TypeComparison::PairComparison::typeText(unsigned int node) const {
    if (node == TypeGraph::NO_TYPE)
        return "none";
    if (node == TypeGraph::NOWHERE)
        return "missing type";
    return typeWords(m_graph.tableOf(node), m_graph.idOf(node));
}

/// What a part is, beside its name.
std::string TypeComparison::PairComparison::partText(unsigned int node, const TypeShape& shape,
                                                     std::size_t part) const {
    const TypeShape::Part& it = shape.parts[part];
    if (it.linksBegin < shape.linksEnd(part))
        return typeText(m_graph.link(node, it.linksBegin));
    if (it.fieldsBegin < shape.fieldsEnd(part))
        return fmt::format("value {}",
                           fieldText(shape.fields[it.fieldsBegin].value, m_all.m_lists));
    return fmt::format("value {}", part);
}

std::vector<TypeChange> TypeComparison::changesOf(unsigned int node) const {
    return PairComparison(*this, node, m_pairing.partner(node)).changes();
}

/// The name of a type, or the steps to it from the nearest type around it that has one.
std::string TypeComparison::pathTo(unsigned int node) const {
    std::vector<std::string> steps;
    for (int depth = 0; depth < DEPTH_LIMIT; ++depth) {
        const RTBaseType* type = m_graph.typeOf(node);
        const TypePairing::Place place = m_pairing.placeOfPair(node);
        if (type == nullptr || isGivenName(type->m_name) || place.node == TypePairing::NONE)
            break;
        steps.push_back(stepText(placeOf(*m_graph.typeOf(place.node), place.link)));
        node = place.node;
    }
    const RTBaseType* type = m_graph.typeOf(node);
    std::string path = type != nullptr && isGivenName(type->m_name)
                           ? pathName(type->m_name)
                           : fmt::format("(type {})", m_graph.idOf(node));
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        path += *step;
    return path;
}

} // namespace Inspect
