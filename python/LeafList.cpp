#include "LeafList.h"

#include "Inspect/views/TypeTree.h"
#include "Refused.h"
#include "Sealed.h"
#include "Values.h"

#include <optional>
#include <string>
#include <utility>

namespace Bindings {

namespace {

// Classes of tuples; never deleted.
const TupleClass* leafClass = nullptr;
const TupleClass* bitsClass = nullptr;
const TupleClass* strideClass = nullptr;

py::object bitsObject(const std::optional<Inspect::BitPlace>& bits) {
    if (!bits)
        return py::none();
    const auto strideObject = [&](std::size_t i) {
        const Inspect::BitStride& stride = bits->strides[i];
        return (*strideClass)({py::int_(stride.count), py::int_(stride.bits)});
    };
    return (*bitsClass)({py::int_(bits->offset), py::int_(bits->width),
                         tupleOf(bits->strides.size(), strideObject)});
}

/// The leaves of a type, found one by one while Python asks for them.
class LeafList {
public:
    LeafList(const TypeEntry& entry, unsigned int limit)
        : m_table(entry.table->shared_from_this()), m_id(entry.id), m_limit(limit),
          m_walk(entry.id, entry.type, *entry.table->types().widths, limit) {}

    py::object next() {
        if (!m_walk.next())
            end();
        // Making objects can run code that asks for the next leaf: all of this one is taken first.
        const Leaf leaf = taken();
        std::vector<py::object> items{textOf(leaf.path),
                                      typeObject(m_table->find(leaf.typeId)),
                                      typeObject(m_table->find(leaf.declaredTypeId)),
                                      leaf.encoded != nullptr
                                          ? wordOf(m_table->types().encodings->of(*leaf.encoded))
                                          : py::none(),
                                      dimensionObjects(leaf.dimensions),
                                      bitsObject(leaf.bits),
                                      leaf.narrowing ? rangeObject(*leaf.narrowing) : py::none(),
                                      py::bool_(leaf.isSeenAbove)};
        return (*leafClass)(std::move(items));
    }

private:
    struct Leaf {
        std::string path;
        unsigned int typeId;
        unsigned int declaredTypeId;
        const RTTI::RTBaseType* encoded;
        std::vector<Inspect::Dimension> dimensions;
        std::optional<Inspect::BitPlace> bits;
        std::optional<RTTI::FullConstraints> narrowing;
        bool isSeenAbove;
    };

    Leaf taken() const {
        Leaf leaf{.path = std::string(m_walk.path()),
                  .typeId = m_walk.typeId(),
                  .declaredTypeId = m_walk.declaredTypeId(),
                  .encoded = m_walk.encoded(),
                  .dimensions = m_walk.dimensions(),
                  .bits = m_walk.bits(),
                  .narrowing = {},
                  .isSeenAbove = m_walk.isSeenAbove()};
        if (m_walk.narrowing() != nullptr)
            leaf.narrowing = *m_walk.narrowing();
        return leaf;
    }

    [[noreturn]] void end() const {
        if (m_walk.isCut())
            throw Refused(m_table->name(), "type " + std::to_string(m_id),
                          "it has more than " + std::to_string(m_limit) + " parts");
        throw py::stop_iteration();
    }

    std::shared_ptr<LoadedTable> m_table;
    unsigned int m_id;
    unsigned int m_limit;
    Inspect::LeafWalk m_walk;
};

} // namespace

py::tuple dimensionObjects(const std::vector<Inspect::Dimension>& dimensions) {
    return tupleOf(dimensions.size(), [&](std::size_t i) {
        const Inspect::Dimension& dimension = dimensions[i];
        return dimension.kind == Inspect::Dimension::Kind::RANGE
                   ? rangeObject(dimension.range)
                   : py::object(py::str(dimensionText(dimension)));
    });
}

void addLeaves(py::module_& module, py::class_<TypeEntry, std::shared_ptr<TypeEntry>>& type) {
    bitsClass = new TupleClass(module, "Bits", {"offset", "width", "strides"});
    strideClass = new TupleClass(module, "Stride", {"count", "bits"});
    leafClass = new TupleClass(module, "Leaf",
                               {"path", "type", "declaredType", "encoding", "dimensions", "bits",
                                "valueRange", "seenAbove"});
    py::class_<LeafList> leaves(module, "LeafIterator");
    leaves.def("__iter__", [](py::object self) { return self; }).def("__next__", &LeafList::next);
    seal(leaves);
    type.def(
        "leaves",
        [](const TypeEntry& entry, unsigned int limit) {
            return std::make_unique<LeafList>(entry, limit);
        },
        py::kw_only(), py::arg("limit") = Inspect::TreeRequest().limit);
}

} // namespace Bindings
