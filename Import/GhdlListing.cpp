#include "Import/GhdlListing.h"

#include "Import/GhdlLine.h"
#include "Import/ImportError.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace Import {

namespace {

constexpr std::string_view HEADER = "DISP_RTI.Disp_All: ";
constexpr std::string_view KIND = "ghdl_rtik_";
constexpr std::string_view FILE_NAME = "filename: ";

/// What a line is about.
enum class Line : unsigned char {
    OBJECT, ///< Has a value or nothing that a type needs.
    SCOPE,
    PACKAGE,
    PACKAGE_BODY,
    ARCHITECTURE,
    ENTITY,
    ENUMERATION,
    SCALAR,
    UNIT,
    ARRAY,
    ARRAY_SUBTYPE,
    OPEN_SUBTYPE,
    RECORD,
    ELEMENT,
    RECORD_SUBTYPE,
    ALIAS,
    ACCESS,
    FILE_TYPE,
    PROTECTED,
    UNKNOWN,
};

struct Kind {
    std::string_view name;
    Line line;
};

constexpr Kind KINDS[] = {{"package", Line::PACKAGE},
                          {"package_body", Line::PACKAGE_BODY},
                          {"architecture", Line::ARCHITECTURE},
                          {"entity", Line::ENTITY},
                          {"process", Line::SCOPE},
                          {"block", Line::SCOPE},
                          {"if_generate", Line::SCOPE},
                          {"case_generate", Line::SCOPE},
                          {"for_generate", Line::SCOPE},
                          {"generate_body", Line::SCOPE},
                          {"instance", Line::SCOPE},
                          {"component", Line::SCOPE},
                          {"attribute", Line::OBJECT},
                          {"attribute_quiet", Line::OBJECT},
                          {"attribute_stable", Line::OBJECT},
                          {"attribute_transaction", Line::OBJECT},
                          {"constant", Line::OBJECT},
                          {"iterator", Line::OBJECT},
                          {"signal", Line::OBJECT},
                          {"variable", Line::OBJECT},
                          {"guard", Line::OBJECT},
                          {"file", Line::OBJECT},
                          {"port", Line::OBJECT},
                          {"generic", Line::OBJECT},
                          {"alias", Line::OBJECT},
                          {"psl_assert", Line::OBJECT},
                          {"psl_assume", Line::OBJECT},
                          {"psl_cover", Line::OBJECT},
                          {"psl_endpoint", Line::OBJECT},
                          {"type_b1", Line::ENUMERATION},
                          {"type_e8", Line::ENUMERATION},
                          {"type_e32", Line::ENUMERATION},
                          {"subtype_scalar", Line::SCALAR},
                          {"unit64", Line::UNIT},
                          {"unitptr", Line::UNIT},
                          {"type_array", Line::ARRAY},
                          {"subtype_array", Line::ARRAY_SUBTYPE},
                          {"subtype_unbounded_array", Line::OPEN_SUBTYPE},
                          {"subtype_unbounded_record", Line::OPEN_SUBTYPE},
                          {"type_record", Line::RECORD},
                          {"type_unbounded_record", Line::RECORD},
                          {"element", Line::ELEMENT},
                          {"subtype_record", Line::RECORD_SUBTYPE},
                          {"subtype_alias", Line::ALIAS},
                          {"type_access", Line::ACCESS},
                          {"type_file", Line::FILE_TYPE},
                          {"type_protected", Line::PROTECTED}};

class ListingScan {
public:
    ListingScan(Input& input, Notes& notes) : m_input(input), m_notes(notes) {
        m_listing.scopes.emplace_back();
    }

    GhdlListing read() {
        std::string_view text;
        bool isWhole = true;
        while (m_input.readLine(text)) {
            if (!m_hasHeader)
                m_hasHeader = text.substr(0, HEADER.size()) == HEADER;
            else if (readLine(text))
                isWhole = m_input.endedLine();
        }
        if (!m_hasHeader)
            throw ImportError(m_input.place(), "not a type listing of GHDL (--dump-rti)");
        if (!isWhole || !m_hasDesign)
            failInTheMiddle();
        return std::move(m_listing);
    }

private:
    /// A scope whose lines are still to come, and how far its own line is indented.
    struct Opened {
        std::size_t indent;
        std::size_t scope;
    };

    [[noreturn]] void failInTheMiddle() const {
        throw ImportError(m_input.linePlace(), "the listing ends in the middle: GHDL failed, "
                                               "was stopped, or is still writing it");
    }

    /// False for a line that is none of a listing.
    bool readLine(std::string_view text) {
        const std::size_t indent = std::min(text.find_first_not_of(' '), text.size());
        GhdlLine line(text.substr(indent), m_input.linePlace());
        if (!line.take(KIND)) {
            const bool isListed = line.isAt(FILE_NAME) && indent > 0;
            if (m_hasError && line.isAt("instance: "))
                failInTheMiddle();
            if (!isListed && m_foreignLine == 0)
                m_foreignLine = m_input.line();
            return isListed;
        }
        noteForeignLine();
        const std::string_view kind = line.takeWord();
        const auto* const found = std::find_if(std::begin(KINDS), std::end(KINDS),
                                               [=](const Kind& k) { return k.name == kind; });
        const Line about = found != std::end(KINDS) ? found->line : Line::UNKNOWN;
        // GHDL can fail at the value of an object; it says so in the midst of it.
        m_hasError = about == Line::OBJECT && text.find(":error: ") != std::string_view::npos;
        if (about == Line::OBJECT)
            return true;
        if (about == Line::UNKNOWN)
            noteUnknown(kind);
        else if (about <= Line::ENTITY)
            openScope(about, line, indent);
        else
            readType(about, line, indent);
        return true;
    }

    /// A line of the design's own output in the midst of the listing can have hidden one.
    void noteForeignLine() {
        if (m_foreignLine != 0)
            m_notes.add(m_input.linePlace(m_foreignLine), "not a line of a type listing; skipped");
        m_foreignLine = 0;
    }

    void noteUnknown(std::string_view kind) {
        m_notes.add(m_input.linePlace(), "a line of the kind " + std::string(KIND) +
                                             std::string(kind) +
                                             ", which is not known, is passed over");
    }

    void closeScopes(std::size_t indent) {
        while (!m_open.empty() && m_open.back().indent >= indent)
            m_open.pop_back();
    }

    std::size_t scope() const { return m_open.empty() ? 0 : m_open.back().scope; }

    void openScope(Line about, GhdlLine& line, std::size_t indent) {
        closeScopes(indent);
        m_isTaken = false;
        const std::size_t parent = scope();
        // The declarations of an entity and of its architecture see one another.
        std::size_t opened = parent;
        line.takeUpTo(": ");
        if (about == Line::PACKAGE)
            opened = packageScope(parent, line.takeName());
        else if (about == Line::PACKAGE_BODY)
            opened = addScope(packageScope(parent, line.takeName()), false);
        else if (about != Line::ENTITY)
            opened = addScope(parent, false);
        m_hasDesign = m_hasDesign || (about == Line::ARCHITECTURE && indent == 0);
        m_open.push_back({indent, opened});
    }

    std::size_t addScope(std::size_t parent, bool isPackage) {
        m_listing.scopes.push_back({parent, m_listing.scopes[parent].package, isPackage});
        return m_listing.scopes.size() - 1;
    }

    /// A package has one scope, also where GHDL lists it again.
    std::size_t packageScope(std::size_t parent, const std::string& name) {
        const auto [at, isNew] = m_packages.try_emplace({parent, name}, 0);
        if (isNew) {
            at->second = addScope(parent, true);
            std::string& package = m_listing.scopes.back().package;
            package += package.empty() ? name : "." + name;
        }
        return at->second;
    }

    void readType(Line about, GhdlLine& line, std::size_t indent) {
        if (about == Line::UNIT || about == Line::ELEMENT) {
            readPart(about, line, indent);
            return;
        }
        closeScopes(indent);
        line.takeUpTo(": ");
        ListedType type;
        type.scope = scope();
        type.line = m_input.line();
        type.name = line.takeName();
        line.expect(" is ");
        readRest(about, line, type);
        m_isTaken = true;
        m_indent = indent;
        m_listing.types.push_back(std::move(type));
    }

    /// Units and elements belong to the type in front of them.
    void readPart(Line about, GhdlLine& line, std::size_t indent) {
        using Form = ListedType::Form;
        const Form owner = about == Line::UNIT ? Form::SCALAR : Form::RECORD;
        if (!m_isTaken || indent != m_indent + 1 || m_listing.types.back().form != owner)
            throw ImportError(m_input.linePlace(), "no type in front of it has this part");
        line.takeUpTo(": ");
        ListedPart part;
        part.name = line.takeName();
        if (about == Line::UNIT) {
            line.expect(" = ");
            part.value = line.takeNumber();
        } else {
            line.expect(": ");
            part.use = line.takeUse();
        }
        line.finish();
        m_listing.types.back().parts.push_back(std::move(part));
    }

    void readRest(Line about, GhdlLine& line, ListedType& type) {
        using Form = ListedType::Form;
        switch (about) {
        case Line::ENUMERATION: readLiterals(line, type); break;
        case Line::SCALAR: readScalar(line, type); break;
        case Line::ARRAY: readArray(line, type); break;
        case Line::ARRAY_SUBTYPE: readArraySubtype(line, type); break;
        case Line::OPEN_SUBTYPE: readNamed(Form::OPEN_SUBTYPE, line, type); break;
        case Line::ALIAS: readNamed(Form::ALIAS, line, type); break;
        case Line::RECORD_SUBTYPE: readNamed(Form::RECORD_SUBTYPE, line, type); break;
        case Line::RECORD:
            type.form = Form::RECORD;
            line.expect("record");
            break;
        case Line::ACCESS:
            line.expect("access ");
            readNamed(Form::ACCESS, line, type);
            break;
        case Line::FILE_TYPE:
            line.expect("file ");
            readNamed(Form::FILE_TYPE, line, type);
            break;
        default:
            type.form = Form::PROTECTED;
            line.expect("protected");
            break;
        }
        line.finish();
    }

    static void readNamed(ListedType::Form form, GhdlLine& line, ListedType& type) {
        type.form = form;
        type.use = line.takeUse();
    }

    static void readLiterals(GhdlLine& line, ListedType& type) {
        type.form = ListedType::Form::ENUMERATION;
        line.expect("(");
        do {
            type.parts.push_back({line.takeName(), 0, {}});
        } while (line.take(", "));
        line.expect(")");
    }

    /// A number type has its range alone; what is told about some subtypes is their name.
    static void readScalar(GhdlLine& line, ListedType& type) {
        using Form = ListedType::Form;
        std::string first = line.takeBound();
        if (line.isAtEnd()) {
            type.form = Form::UNSAID;
            return;
        }
        type.use.hasRange = true;
        if (line.take(" range ")) {
            type.form = Form::SCALAR_SUBTYPE;
            type.use.name = std::move(first);
            type.use.range = line.takeRange();
            return;
        }
        type.form = Form::SCALAR;
        type.use.range.isDownto = line.take(" downto ");
        if (!type.use.range.isDownto)
            line.expect(" to ");
        type.use.range.left = std::move(first);
        type.use.range.right = line.takeBound();
    }

    static void readArray(GhdlLine& line, ListedType& type) {
        type.form = ListedType::Form::ARRAY;
        line.expect("array (");
        do {
            type.indexes.push_back(line.takeName());
            line.expect(" range <>");
        } while (line.take(", "));
        line.expect(") of ");
        type.use = line.takeUse();
    }

    static void readArraySubtype(GhdlLine& line, ListedType& type) {
        type.form = ListedType::Form::ARRAY_SUBTYPE;
        type.use = line.takeUse();
        type.hasElement = line.take(" of ");
        if (type.hasElement)
            type.element = line.takeUse();
    }

    Input& m_input;
    Notes& m_notes;
    GhdlListing m_listing;
    std::map<std::pair<std::size_t, std::string>, std::size_t> m_packages;
    std::vector<Opened> m_open;
    std::size_t m_indent = 0; ///< Of the last type.
    bool m_isTaken = false;   ///< The last type may have parts that are still to come.
    bool m_hasHeader = false;
    bool m_hasDesign = false;
    bool m_hasError = false;              ///< The last line has the words of one.
    unsigned long long m_foreignLine = 0; ///< The first one since the last that was not.
};

} // namespace

GhdlListing readGhdlListing(Input& input, Notes& notes) { return ListingScan(input, notes).read(); }

} // namespace Import
