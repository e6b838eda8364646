// Importing, reading JSON, comparing and printing while memory runs out: the program goes on,
// nothing is kept, and the call made again is complete.

#include "Import/Importer.h"
#include "Inspect/bytes/FileAnnotator.h"
#include "Inspect/declarations/DeclarationFile.h"
#include "Inspect/diff/TypeDiffPrinter.h"
#include "Inspect/graph/GraphWriter.h"
#include "Inspect/html/HtmlPage.h"
#include "Inspect/json/TypeJsonReader.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/views/TypeDumper.h"
#include "Inspect/views/TypeLeaves.h"
#include "Inspect/views/TypeStatistics.h"
#include "Inspect/views/TypeTree.h"
#include "Inspect/views/TypeUses.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "tests/support/FailingAllocations.h"

#include <gtest/gtest.h>

#include <deque>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace RTTI;

/// The types of a file, all of them loaded.
class Types {
public:
    explicit Types(const std::string& path) : m_storage(path) {
        m_manager.setupDeserializer(m_storage, 0);
        while (m_manager.getRTType(m_count) != nullptr)
            ++m_count;
    }
    Inspect::TypeTable table() {
        return {m_count, [this](unsigned int id) { return m_manager.getRTType(id); }};
    }
    OVAT::FileBlockManager& storage() { return m_storage; }

private:
    OVAT::FileBlockManager m_storage;
    RTTypeManager m_manager;
    unsigned int m_count = 0;
};

/// Lets each allocation of `call`, which has a result, fail in turn. What it took is given back
/// each time; and the call that comes to its end has the same result as one that lacks nothing.
void expectWholeAfterEachFailure(const std::function<std::string()>& call, std::size_t atLeast) {
    const std::string expected = call();
    ASSERT_FALSE(expected.empty());
    bool isWhole = true;
    std::size_t before = liveAllocations();
    const std::size_t failures = failEachAllocation(
        [&] {
            before = liveAllocations();
            isWhole = call() == expected && isWhole;
        },
        [&](std::size_t number) { ASSERT_EQ(liveAllocations(), before) << "after " << number; });
    EXPECT_GE(failures, atLeast);
    EXPECT_TRUE(isWhole);
}

using Print = std::function<void(std::ostream&, const Inspect::TypeTable&)>;

/// The same for printing: `print` gets a table and a stream that passes on what its text throws.
void expectWholePrintOf(const std::vector<std::string>& paths, std::size_t atLeast,
                        const Print& print) {
    std::deque<Types> files;
    for (const std::string& path : paths)
        files.emplace_back(path);
    expectWholeAfterEachFailure(
        [&] {
            std::ostringstream out;
            out.exceptions(std::ios::badbit);
            for (Types& types : files)
                print(out, types.table());
            return out.str();
        },
        atLeast);
}

/// The types of a file that has each kind.
void expectWholePrint(std::size_t atLeast, const Print& print) {
    expectWholePrintOf({EVERY_KIND_TYPEFILE}, atLeast, print);
}

/// Those types, and the ones of a design.
void expectWholePrintOfMany(std::size_t atLeast, const Print& print) {
    expectWholePrintOf({EVERY_KIND_TYPEFILE, EXAMPLE_TYPEFILES_DIR "/ieee_ghw.typ"}, atLeast,
                       print);
}

std::string imported(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    Import::Notes notes;
    Import::Importer importer({}, notes);
    Import::Input input(stream, "dump");
    importer.read(input);
    TypeFile::TypeFileWriter writer;
    importer.finish([&](const RTTI::RTBaseType& type) { writer.add(type); });
    const std::vector<char> bytes = writer.finish();
    return {bytes.begin(), bytes.end()};
}

TEST(WithoutMemory, AnImportOfATreeKeepsNothing) {
    expectWholeAfterEachFailure([] { return imported(EXAMPLE_DUMP_DIR "/t_enum_func.tree"); }, 100);
}

TEST(WithoutMemory, AnImportOfAWaveKeepsNothing) {
    expectWholeAfterEachFailure([] { return imported(IMPORT_DATA_DIR "/ghdl/kinds-6.0.ghw"); },
                                300);
}

/// Types as a writer orders them, and in every other way; their members lie as deep as any.
constexpr char TYPES_AS_TEXT[] =
    R"({"format":"HDL simulator types","types":[{"id":0,"kind":"string","name":"a long name of it"},
    {"id":1,"kind":"real","name":"r","flavour":0,"left":"-Infinity","right":1.5,"direction":0},
    {"kind":"record","id":2,"name":{"hex":"e9"},"members":[{"type":0,"name":"caf\u00e9",
    "constraints":[{"dir":-1,"ei":0,"si":3}]},{"name":"m","type":1}],"recordKind":"VHDL_RECORD"},
    {"id":3,"kind":"chandle","name":""}],"formatVersion":1,"version":"a version"})";

/// The text that is written of the types that are read, and the fault that ends it.
std::string readAndWritten(const std::string& text, Inspect::JsonForm form) {
    std::istringstream in(text);
    std::ostringstream out;
    out.exceptions(std::ios::badbit);
    Inspect::TypeJsonWriter writer(out, form, "");
    Inspect::TypeJsonReader reader(
        [&](unsigned int id, const RTBaseType& type) { writer.type(id, type); },
        [&](std::string_view version) { out << version; });
    try {
        if (form == Inspect::JsonForm::LINES)
            reader.readLines(in);
        else
            reader.readDocument(in);
    } catch (const Inspect::JsonError& error) {
        out << error.what();
    }
    writer.end();
    return out.str();
}

TEST(WithoutMemory, ADocumentThatIsReadKeepsNothing) {
    expectWholeAfterEachFailure(
        [] { return readAndWritten(TYPES_AS_TEXT, Inspect::JsonForm::DOCUMENT); }, 50);
}

TEST(WithoutMemory, LinesThatAreReadKeepNothing) {
    std::string text = R"({"version":"a version","format":"HDL simulator types"})"
                       "\n"
                       R"({"kind":"access","refType":0,"id":0,"name":"a name that is long enough"})"
                       "\n"
                       R"({"id":1,"kind":"string","name":"another one that is long enough"})";
    expectWholeAfterEachFailure([&] { return readAndWritten(text, Inspect::JsonForm::LINES); }, 30);
}

TEST(WithoutMemory, TheFaultsOfADocumentKeepNothing) {
    for (const char* const text :
         {R"({"types":[{"id":0,"kind":"string","name":"a","members":[[],{"a":"b"}]}]})",
          R"({"types":[{"kind":"record","members":[{"name":"caf\u00e9","type":[1,2,]}]}]})"})
        expectWholeAfterEachFailure(
            [&] { return readAndWritten(text, Inspect::JsonForm::DOCUMENT); }, 20);
}

TEST(WithoutMemory, AComparisonKeepsNothing) {
    Types a(EXAMPLE_TYPEFILES_DIR "/ieee_ghw.typ");
    Types b(EXAMPLE_TYPEFILES_DIR "/ieee_rti.typ");
    const auto compare = [&] {
        std::ostringstream out;
        out.exceptions(std::ios::badbit); // Passes on what its text throws.
        const Inspect::TypeDiff diff(a.table(), b.table());
        Inspect::printDiffText(out, diff, Inspect::TextStyle::plain());
        return out.str();
    };
    expectWholeAfterEachFailure(compare, 300);
}

TEST(WithoutMemory, AComparisonAsJsonKeepsNothing) {
    Types a(EXAMPLE_TYPEFILES_DIR "/ieee_ghw.typ");
    Types b(EVERY_KIND_TYPEFILE);
    expectWholeAfterEachFailure(
        [&] {
            std::ostringstream out;
            out.exceptions(std::ios::badbit);
            printDiffJson(out, Inspect::TypeDiff(a.table(), b.table()));
            return out.str();
        },
        300);
}

TEST(WithoutMemory, TypesAsJsonKeepNothing) {
    expectWholePrint(10, [](std::ostream& out, const Inspect::TypeTable& types) {
        Inspect::TypeJsonWriter writer(out, Inspect::JsonForm::DOCUMENT, "caf\xE9", true);
        for (unsigned int id = 0; id < types.count; ++id) {
            if (const RTBaseType* type = types.typeOf(id))
                writer.type(id, *type);
            else
                writer.noType(id, 0);
        }
        writer.end();
    });
}

TEST(WithoutMemory, TypesAsTextKeepNothing) {
    expectWholePrintOfMany(300, [](std::ostream& out, const Inspect::TypeTable& types) {
        Inspect::TypeDumper dumper(out, types);
        for (unsigned int id = 0; id < types.count; ++id) {
            if (const RTBaseType* type = types.typeOf(id))
                dumper.type(id, *type);
        }
    });
}

TEST(WithoutMemory, DeclarationsKeepNothing) {
    for (const auto language :
         {Inspect::SourceLanguage::VHDL, Inspect::SourceLanguage::SYSTEM_VERILOG})
        expectWholePrintOfMany(100, [=](std::ostream& out, const Inspect::TypeTable& types) {
            Inspect::DeclarationFile file(out, types, language, Inspect::IdComments::SHOWN);
            for (unsigned int id = 0; id < types.count; ++id)
                file.add(id);
            file.end();
        });
}

TEST(WithoutMemory, TreesKeepNothing) {
    expectWholePrint(300, [](std::ostream& out, const Inspect::TypeTable& types) {
        for (unsigned int id = 0; id < types.count; ++id) {
            const Inspect::TreeRequest request{id, 4, 100, Inspect::RangeLists::SHORT};
            writeTree(out, types, request, Inspect::TextStyle::plain());
            writeTreeJson(out, types, request, Inspect::JsonForm::DOCUMENT);
        }
    });
}

TEST(WithoutMemory, LeavesKeepNothing) {
    expectWholePrint(300, [](std::ostream& out, const Inspect::TypeTable& types) {
        for (unsigned int id = 0; id < types.count; ++id) {
            const Inspect::LeavesRequest request{id, 100, Inspect::RangeLists::SHORT};
            writeLeaves(out, types, request, Inspect::TextStyle::plain());
            writeLeavesJson(out, types, request, Inspect::JsonForm::LINES);
        }
    });
}

TEST(WithoutMemory, UsesKeepNothing) {
    expectWholePrint(50, [](std::ostream& out, const Inspect::TypeTable& types) {
        writeUses(out, types, 0, Inspect::TextStyle::plain());
        writeUsesJson(out, types, 0, Inspect::JsonForm::DOCUMENT);
        writeAllUses(out, types, 0, Inspect::TextStyle::plain());
        writeAllUsesJson(out, types, 0, Inspect::JsonForm::LINES);
    });
}

TEST(WithoutMemory, StatisticsKeepNothing) {
    expectWholePrint(50, [](std::ostream& out, const Inspect::TypeTable& types) {
        const auto statistics = statisticsOf(
            types, [](unsigned int id) { return id * 1ULL; }, 5);
        writeStatistics(out, types, {"V", 0, 1}, statistics, 5, Inspect::TextStyle::plain());
        writeStatisticsJson(out, types, {"caf\xE9", 0, 1}, statistics);
    });
}

TEST(WithoutMemory, GraphsKeepNothing) {
    using Inspect::GraphForm;
    expectWholePrint(100, [](std::ostream& out, const Inspect::TypeTable& types) {
        for (const GraphForm form : {GraphForm::DOT, GraphForm::MERMAID, GraphForm::JSON})
            writeGraph(out, types, {}, form);
    });
}

TEST(WithoutMemory, AnnotatedBytesKeepNothing) {
    Types types(EVERY_KIND_TYPEFILE);
    expectWholePrint(300, [&](std::ostream& out, const Inspect::TypeTable&) {
        Inspect::Annotation annotation;
        for (const auto form : {Inspect::AnnotationForm::TEXT, Inspect::AnnotationForm::JSON}) {
            annotation.form = form;
            annotate(out, types.storage(), types.storage().size(), annotation);
        }
    });
}

TEST(WithoutMemory, AnHtmlPageKeepsNothing) {
    Types types(EVERY_KIND_TYPEFILE);
    expectWholePrint(300, [&](std::ostream& out, const Inspect::TypeTable& table) {
        const Inspect::HtmlSource source{
            "title", "V",   types.storage(),           types.storage().size(),
            0,       table, Inspect::RangeLists::SHORT};
        writeHtmlPage(out, source);
    });
}

} // namespace
