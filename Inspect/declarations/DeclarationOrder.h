#pragma once

#include "Inspect/declarations/LanguageDeclarations.h"

#include <string>
#include <vector>

namespace Inspect {

/// Receives declarations in an order that a compiler can read.
class DeclarationSink {
public:
    virtual ~DeclarationSink() = default;

    /// The type is needed in its package before its declaration, which follows later.
    virtual void announce(unsigned int id) = 0;

    /// The type can be declared: everything that it needs has been declared or announced.
    virtual void declare(unsigned int id) = 0;

    /// The type cannot be declared, for this reason.
    virtual void omit(unsigned int id, std::string reason) = 0;
};

/// Puts each type after those that its declaration needs, otherwise in the order in which the types
/// are added. If an announcement is enough, the type is announced just before its own package needs
/// it. A type that needs itself, or that cannot be declared, is omitted. Takes one byte for each
/// type; depth takes memory but no stack.
class DeclarationOrder {
public:
    /// Keeps references to all three arguments.
    DeclarationOrder(const TypeTable& types, const LanguageDeclarations& language,
                     DeclarationSink& sink);

    /// Declares a type after the types that it needs.
    void add(unsigned int id);

    /// Declares the types that have only been announced, or named by other packages, so far.
    void finish();

private:
    enum class State : unsigned char { NEW, ACTIVE, DECLARED, OMITTED };

    /// A type whose needs are being declared.
    struct Visit {
        unsigned int id;
        std::size_t
            firstNeed; ///< Of its part of `m_needs`, which ends where the next visit's begins.
        std::size_t nextNeed;
        std::string obstacle;
    };

    void enter(unsigned int id);
    void follow(Visit& visit);
    void leave();
    void announceNeeds(Visit& visit);
    std::string obstacleIn(const TypeNeed& need) const;

    const LanguageDeclarations& m_language;
    DeclarationSink& m_sink;
    std::vector<State> m_states;
    std::vector<bool> m_isAnnounced;
    std::vector<bool> m_isAwaited;
    std::vector<unsigned int> m_awaited; ///< In order; some may be declared by now.
    std::vector<Visit> m_visits;
    std::vector<TypeNeed> m_needs; ///< Of all visits, one after the other.
    TypeNeeds m_scratch;           ///< Of one type.
};

} // namespace Inspect
