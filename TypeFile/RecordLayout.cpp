#include "TypeFile/RecordLayout.h"

namespace TypeFile {

namespace {

struct AsSpan {
    template <const auto& LAYOUT> std::span<const FieldLayout> operator()() const { return LAYOUT; }
    std::span<const FieldLayout> none() const { return {}; }
};

} // namespace

std::span<const FieldLayout> bodyLayout(unsigned int kind) { return withLayout(kind, AsSpan{}); }

} // namespace TypeFile
