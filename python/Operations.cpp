#include "Operations.h"

#include "Import/ImportError.h"
#include "Import/Importer.h"
#include "Inspect/diff/TypeDiff.h"
#include "Inspect/json/TypeJsonReader.h"
#include "LoadedTable.h"
#include "OVAT/MemoryBlockManager.h"
#include "Refused.h"
#include "Sources.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeFileWriter.h"
#include "TypeFile/WriteError.h"
#include "Values.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace Bindings {

namespace {

using TablePointer = std::shared_ptr<LoadedTable>;

// Classes of tuples; never deleted.
const TupleClass* findingClass = nullptr;
const TupleClass* changeClass = nullptr;
const TupleClass* diffClass = nullptr;

py::object findingObject(const TypeFile::Finding& finding) {
    const bool isOfFile = finding.typeId == RTTI::TypeFileFormat::NO_TYPE_ID;
    return (*findingClass)({textOf(TypeFile::severityText(finding.severity)),
                            textOf(TypeFile::codeText(finding.code)),
                            isOfFile ? py::none() : py::object(py::int_(finding.typeId)),
                            textOf(finding.field), py::int_(finding.offset), textOf(finding.text)});
}

py::tuple findingObjects(const std::vector<TypeFile::Finding>& findings) {
    return tupleOf(findings.size(), [&](std::size_t i) { return findingObject(findings[i]); });
}

/// Refuses a file with errors.
void checkFindings(const Source& source, unsigned long long offset) {
    usableFrame(source, offset);
    std::vector<TypeFile::Finding> findings = findingsIn(source, offset);
    const auto error = std::find_if(findings.begin(), findings.end(), [](const auto& finding) {
        return finding.severity == TypeFile::Severity::ERROR;
    });
    if (error == findings.end())
        return;
    const std::string place = "offset " + std::to_string(error->offset);
    const std::string line = TypeFile::lineOf(*error);
    throw Refused(source.name, place, line, std::move(findings));
}

TablePointer load(const py::object& argument, unsigned long long offset, bool verify) {
    const SourceArgument source(argument);
    const py::gil_scoped_release unlocked;
    const Source opened = source.open();
    if (verify)
        checkFindings(opened, offset);
    return std::make_shared<LoadedTable>(opened, offset);
}

py::tuple verify(const py::object& argument, unsigned long long offset) {
    const SourceArgument source(argument);
    std::vector<TypeFile::Finding> findings;
    {
        const py::gil_scoped_release unlocked;
        findings = findingsIn(source.open(), offset);
    }
    return findingObjects(findings);
}

/// A table of types that are not in a file.
TablePointer tableOf(const std::vector<char>& bytes) {
    Source source{"", std::make_unique<OVAT::MemoryBlockManager>(bytes.data(), bytes.size()),
                  bytes.size()};
    return std::make_shared<LoadedTable>(source, 0);
}

Import::Format formatOf(const std::string& name) {
    std::string names;
    for (const Import::Format format : Import::allFormats()) {
        if (name == Import::formatName(format))
            return format;
        names += (names.empty() ? "" : ", ") + std::string(Import::formatName(format));
    }
    throw py::value_error("there is no format \"" + name + "\"; there are " + names);
}

void readInput(Import::Importer& importer, const SourceArgument& source, const std::string& name,
               const std::optional<Import::Format>& format) {
    const std::unique_ptr<std::istream> stream = source.openStream();
    Import::Input input(*stream, name);
    importer.read(input, format ? *format : Import::recogniseFormat(input));
    if (stream->bad())
        throw std::system_error(EIO, std::generic_category(), name);
}

TablePointer importTypes(const std::vector<SourceArgument>& sources, Import::ImportOptions options,
                         const std::optional<Import::Format>& format) {
    std::vector<std::string> lines;
    Import::Notes notes([&](const Import::Place& place, const std::string& text) {
        lines.push_back(place.text().empty() ? text : place.text() + ": " + text);
    });
    Import::Importer importer(std::move(options), notes);
    TypeFile::TypeFileWriter writer;
    std::string name;
    try {
        for (std::size_t i = 0; i < sources.size(); ++i) {
            name = sources[i].name();
            readInput(importer, sources[i], name.empty() ? "source " + std::to_string(i) : name,
                      format);
        }
        importer.finish([&](const RTTI::RTBaseType& type) { writer.add(type); });
    } catch (const Import::ImportError& error) {
        throw Refused(name, error.place().text(), error.reason());
    }
    TablePointer table = tableOf(writer.finish());
    table->setNotes(std::move(lines));
    return table;
}

TablePointer importAll(const py::args& arguments, const std::vector<std::string>& packages,
                       bool keepAnonymous, const std::optional<std::string>& format) {
    std::vector<SourceArgument> sources;
    for (const py::handle& argument : arguments)
        sources.emplace_back(py::reinterpret_borrow<py::object>(argument));
    if (sources.empty())
        throw py::type_error("there is nothing to import");
    std::optional<Import::Format> known;
    if (format)
        known = formatOf(*format);
    const py::gil_scoped_release unlocked;
    return importTypes(sources, {packages, keepAnonymous}, known);
}

std::vector<char> bytesOfJson(const std::string& text, unsigned long long offset) {
    TypeFile::TypeFileWriter writer(offset);
    Inspect::TypeJsonReader reader(
        [&](unsigned int id, const RTTI::RTBaseType& type) { writer.add(id, type); },
        [&](std::string_view version) { writer.setVersion(version); });
    try {
        std::istringstream in(text);
        reader.readDocument(in);
        return writer.finish();
    } catch (const TypeFile::WriteError& error) {
        throw Refused("", reader.placeOf(error.typeId(), error.field()), error.reason());
    } catch (const Inspect::JsonError& error) {
        throw Refused("", error.place(), error.reason());
    }
}

py::bytes buildFromJson(const std::string& text, unsigned long long offset) {
    std::vector<char> bytes;
    {
        const py::gil_scoped_release unlocked;
        bytes = bytesOfJson(text, offset);
    }
    return py::bytes(bytes.data(), bytes.size());
}

/// What a comparison found, without Python.
struct Comparison {
    std::unique_ptr<Inspect::TypeDiff> diff;
    std::vector<Inspect::TypeChange> changes;
    Inspect::TypeDiff::Counts counts;
};

Comparison compare(const LoadedTable& a, const LoadedTable& b) {
    // Tables of their own: what theirs remember belongs to the thread that has Python's lock.
    Comparison comparison;
    comparison.diff =
        std::make_unique<Inspect::TypeDiff>(Inspect::TypeTable{a.types().count, a.types().typeOf},
                                            Inspect::TypeTable{b.types().count, b.types().typeOf});
    comparison.counts = comparison.diff->eachChange(
        [&](const Inspect::TypeChange& change) { comparison.changes.push_back(change); });
    return comparison;
}

py::object wordsOf(const std::optional<std::string>& words) {
    return words ? textOf(*words) : py::none();
}

py::dict countsOf(const Inspect::TypeDiff::Counts& counts) {
    py::dict named;
    named["typesOfA"] = counts.typesOfA;
    named["typesOfB"] = counts.typesOfB;
    named["equal"] = counts.equal;
    named["removed"] = counts.removed;
    named["changed"] = counts.changed;
    named["containing"] = counts.containing;
    named["added"] = counts.added;
    return named;
}

py::object diff(const TablePointer& a, const TablePointer& b) {
    Comparison found;
    {
        const py::gil_scoped_release unlocked;
        found = compare(*a, *b);
    }
    const auto typesOf = [](LoadedTable& table, const std::vector<unsigned int>& ids) {
        return tupleOf(ids.size(), [&](std::size_t i) { return typeObject(table.find(ids[i])); });
    };
    const auto changeObject = [&](std::size_t i) {
        const Inspect::TypeChange& change = found.changes[i];
        return (*changeClass)({typeObject(a->find(change.idA)), typeObject(b->find(change.idB)),
                               textOf(change.path), textOf(change.field), wordsOf(change.before),
                               wordsOf(change.after)});
    };
    return (*diffClass)({textOf(Inspect::verdictText(found.diff->verdict())),
                         textOf(Inspect::ruleText(found.diff->verdict())),
                         typesOf(*a, found.diff->removed()),
                         tupleOf(found.changes.size(), changeObject),
                         typesOf(*b, found.diff->added()), countsOf(found.counts)});
}

void raise(const Refused& refused) {
    const auto orNone = [](const std::string& text) {
        return text.empty() ? py::none() : pathText(text);
    };
    const py::object type = py::module_::import("rtti._errors").attr("Error");
    const py::object error = type(textOf(std::string_view(refused.what())), orNone(refused.file()),
                                  orNone(refused.place()), findingObjects(refused.findings()));
    PyErr_SetObject(type.ptr(), error.ptr());
}

/// With the path, which the text of the error begins with.
void raiseOSError(const std::system_error& error) {
    const std::string text = error.what();
    const std::string reason = ": " + error.code().message();
    const bool hasPath = text.size() > reason.size() && text.ends_with(reason);
    errno = error.code().value();
    PyErr_SetFromErrnoWithFilenameObject(
        PyExc_OSError,
        hasPath ? pathText(text.substr(0, text.size() - reason.size())).ptr() : nullptr);
}

void translate(std::exception_ptr exception) {
    try {
        if (exception)
            std::rethrow_exception(exception);
    } catch (const Refused& refused) {
        raise(refused);
    } catch (const std::out_of_range& error) { // Of a storage that has become shorter.
        raise(Refused("", "", error.what()));
    } catch (const std::system_error& error) {
        raiseOSError(error);
    }
}

} // namespace

void addOperations(py::module_& module) {
    py::register_exception_translator(translate);
    findingClass =
        new TupleClass(module, "Finding", {"severity", "code", "id", "field", "offset", "text"});
    changeClass = new TupleClass(module, "Change", {"a", "b", "path", "field", "old", "new"});
    diffClass = new TupleClass(module, "Diff",
                               {"verdict", "rule", "removed", "changed", "added", "counts"});
    module.def("load", load, py::arg("source"), py::arg("offset") = 0, py::kw_only(),
               py::arg("verify") = true);
    module.def("verify", verify, py::arg("source"), py::arg("offset") = 0);
    module.def("diff", diff, py::arg("a"), py::arg("b"));
    module.def("import_", importAll, py::kw_only(),
               py::arg("packages") = std::vector<std::string>(), py::arg("keep_anonymous") = false,
               py::arg("format") = py::none());
    module.def("build_from_json", buildFromJson, py::arg("text"), py::arg("offset") = 0);
}

} // namespace Bindings
