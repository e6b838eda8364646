#include "Inspect/diff/TypesInQuestion.h"

#include "Inspect/diff/ContentKey.h"
#include "Inspect/model/UseIndex.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

std::string_view nameOf(const RTBaseType* type) {
    return type != nullptr ? textOf(type->m_name) : std::string_view();
}

/// Finds the ids whose types are equal in both files, with all below them.
class EqualIds {
public:
    EqualIds(const TypeTable& a, const TypeTable& b)
        : m_a(a), m_b(b), m_common(std::min(a.count, b.count)),
          m_isEqual(std::max(a.count, b.count)), m_isNeeded(m_common) {}

    TypesInQuestion run() {
        TypesInQuestion question;
        question.areNone = compareIds() && m_a.count == m_b.count;
        if (question.areNone)
            return question;
        if (m_equalCount < m_common / 2) { // Ids do not help.
            question.nodes.assign(std::size_t{m_a.count} + m_b.count, true);
            return question;
        }
        excludeUsersOfOthers();
        needNamesakes();
        needTargets();
        for (const TypeTable* table : {&m_a, &m_b}) {
            for (unsigned int id = 0; id < table->count; ++id)
                question.nodes.push_back(!m_isEqual[id] || m_isNeeded[id]);
        }
        return question;
    }

private:
    /// Finds the ids whose types are equal by themselves. Whether that is so for all of them, with
    /// the SystemVerilog type ids.
    bool compareIds() {
        bool areSame = true;
        ContentKey a, b;
        for (unsigned int id = 0; id < m_common; ++id) {
            const RTBaseType* typeA = m_a.typeOf(id);
            const RTBaseType* typeB = m_b.typeOf(id);
            m_isEqual[id] = nameOf(typeA) == nameOf(typeB) && a.of(typeA) == b.of(typeB) &&
                            a.links() == b.links() && leadToTheSame(a.links());
            m_equalCount += m_isEqual[id] ? 1 : 0;
            areSame = areSame && m_isEqual[id] && a.svTypeId() == b.svTypeId();
        }
        return areSame;
    }

    /// Whether the ids are those of types in both files or in none.
    bool leadToTheSame(const std::vector<unsigned int>& links) const {
        return std::none_of(links.begin(), links.end(), [this](unsigned int id) {
            return id >= m_common && id < m_isEqual.size();
        });
    }

    void excludeUsersOfOthers() {
        std::vector<unsigned int> others;
        for (unsigned int id = 0; id < m_common; ++id) {
            if (!m_isEqual[id])
                others.push_back(id);
        }
        if (others.empty())
            return;
        const UseIndex uses(m_a);
        for (std::size_t i = 0; i < others.size(); ++i) {
            for (const Use& use : uses.referencesTo(others[i])) {
                if (m_isEqual[use.typeId])
                    others.push_back(use.typeId);
                m_isEqual[use.typeId] = false;
            }
        }
    }

    template <typename Use> void forEachOther(const Use& use) const {
        for (const TypeTable* table : {&m_a, &m_b}) {
            for (unsigned int id = 0; id < table->count; ++id) {
                if (!m_isEqual[id])
                    use(table->typeOf(id));
            }
        }
    }

    void need(unsigned int id) {
        if (id >= m_common || !m_isEqual[id] || m_isNeeded[id])
            return;
        m_isNeeded[id] = true;
        m_toFollow.push_back(id);
    }

    void needNamesakes() {
        std::unordered_set<std::string_view> names;
        forEachOther([&](const RTBaseType* type) { names.insert(nameOf(type)); });
        for (unsigned int id = 0; id < m_common; ++id) {
            if (names.count(nameOf(m_a.typeOf(id))) != 0)
                need(id);
        }
    }

    void needTargets() {
        std::vector<TypeLink> links;
        const auto needTargetsOf = [&](const RTBaseType* type) {
            links.clear();
            if (type != nullptr)
                linksOf(*type, links);
            for (const TypeLink& link : links)
                need(link.typeId);
        };
        forEachOther(needTargetsOf);
        while (!m_toFollow.empty()) {
            const unsigned int id = m_toFollow.back();
            m_toFollow.pop_back();
            needTargetsOf(m_a.typeOf(id));
        }
    }

    const TypeTable& m_a;
    const TypeTable& m_b;
    const unsigned int m_common;   ///< Ids below this are in both files.
    std::vector<bool> m_isEqual;   ///< By id.
    unsigned int m_equalCount = 0; ///< By themselves.
    std::vector<bool> m_isNeeded;  ///< Of the ids in both files: although equal.
    std::vector<unsigned int> m_toFollow;
};

} // namespace

TypesInQuestion typesInQuestion(const TypeTable& a, const TypeTable& b) {
    return EqualIds(a, b).run();
}

} // namespace Inspect
