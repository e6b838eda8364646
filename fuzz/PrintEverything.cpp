#include "fuzz/PrintEverything.h"

#include "Inspect/bytes/FileAnnotator.h"
#include "Inspect/declarations/DeclarationFile.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/diff/TypeDiffPrinter.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/views/TypeDumper.h"
#include "Inspect/views/TypeLeaves.h"
#include "Inspect/views/TypeTree.h"
#include "fuzz/QuickLimits.h"

#include <optional>
#include <ostream>
#include <streambuf>

namespace Fuzz {

namespace {

/// Takes text and drops it.
class Drain : public std::streambuf {
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

struct NoOutput : private Drain, public std::ostream {
    NoOutput() : std::ostream(static_cast<Drain*>(this)) {}
};

} // namespace

void viewAll(const LoadedTypes& types) {
    NoOutput out;
    const Inspect::TypeTable table = types.table();
    Inspect::TypeJsonWriter json(out, Inspect::JsonForm::DOCUMENT, "");
    Inspect::TypeDumper dumper(out, table);
    for (unsigned int id = 0; id < types.count(); ++id) {
        const RTTI::RTBaseType* type = types[id];
        if (type == nullptr)
            continue;
        json.type(id, *type);
        dumper.type(id, *type);
        Inspect::TreeRequest tree;
        tree.id = id;
        tree.limit = MOST_STEPS;
        writeTree(out, table, tree, Inspect::TextStyle::plain());
        Inspect::LeavesRequest leaves;
        leaves.id = id;
        leaves.limit = MOST_STEPS;
        writeLeaves(out, table, leaves, Inspect::TextStyle::plain());
    }
    json.end();
}

void declareAll(const LoadedTypes& types) {
    using Inspect::SourceLanguage;
    NoOutput out;
    for (const auto language : {SourceLanguage::VHDL, SourceLanguage::SYSTEM_VERILOG}) {
        Inspect::DeclarationFile file(out, types.table(), language, Inspect::IdComments::SHOWN);
        for (unsigned int id = 0; id < types.count(); ++id)
            file.add(id);
        file.end();
    }
}

void annotateAll(const void* data, std::size_t size) {
    NoOutput out;
    OVAT::MemoryBlockManager storage(data, size);
    std::optional<LoadedTypes> types;
    Inspect::Annotation annotation;
    annotation.force = true;
    annotation.shapeOf = [&](unsigned int id) {
        if (!types)
            types.emplace(data, size);
        return Inspect::shapeBehindKind(types->table(), id, (*types)[id]);
    };
    for (const auto form : {Inspect::AnnotationForm::TEXT, Inspect::AnnotationForm::JSON}) {
        annotation.form = form;
        annotate(out, storage, size, annotation);
    }
}

bool differ(const LoadedTypes& a, const LoadedTypes& b) {
    NoOutput out;
    const Inspect::TypeDiff diff(a.table(), b.table());
    printDiffText(out, diff, Inspect::TextStyle::plain());
    printDiffJson(out, diff);
    return diff.verdict() != Inspect::DiffVerdict::IDENTICAL;
}

} // namespace Fuzz
