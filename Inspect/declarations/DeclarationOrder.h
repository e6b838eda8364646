#pragma once

#include "Inspect/declarations/LanguageDeclarations.h"

#include <string>
#include <vector>

namespace Inspect {

/// Where declarations go, in an order that a compiler can read.
class DeclarationSink {
public:
    virtual ~DeclarationSink() = default;

    /// The type is needed before it is declared; its declaration follows.
    virtual void announce(unsigned int id) = 0;

    /// All that the declaration needs has been declared or announced.
    virtual void declare(unsigned int id) = 0;

    /// The type has no declaration in the language, for this reason.
    virtual void omit(unsigned int id, const std::string& reason) = 0;
};

/// Puts types after those that their declarations need, each once, in the order they are asked for
/// as far as that goes. Where an announcement is enough, the type is announced right before it is
/// needed. A type that needs itself, or one without a declaration, is omitted. Remembers a byte a
/// type; depth takes memory, no stack.
class DeclarationOrder {
public:
    /// Keeps references to all three.
    DeclarationOrder(const TypeTable& types, const LanguageDeclarations& language,
                     DeclarationSink& sink);

    /// Declares a type, after what it needs.
    void add(unsigned int id);

    /// Declares what has only been announced so far.
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
    std::vector<unsigned int> m_announced; ///< In order; some may be declared by now.
    std::vector<Visit> m_visits;
    std::vector<TypeNeed> m_needs;   ///< Of all visits, one after the other.
    std::vector<TypeNeed> m_scratch; ///< Of one type.
};

} // namespace Inspect
