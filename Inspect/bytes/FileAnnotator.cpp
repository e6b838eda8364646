#include "Inspect/bytes/FileAnnotator.h"

#include "Inspect/bytes/AnnotationWriter.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeFile/TypeFileVerifier.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace Inspect {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;
using TypeFile::Finding;
using TypeFile::FindingCode;
using TypeFile::Severity;
using TypeFile::StorageWindow;
namespace Field = TypeFile::Field;

namespace {

/// Bytes that are shown are read in their order.
constexpr std::size_t SWEEP_BLOCK = std::size_t{64} * 1024;

/// The findings of a file, by what they are about.
class FindingsByType {
public:
    explicit FindingsByType(std::vector<Finding> findings) : m_findings(std::move(findings)) {
        // It is about no bytes.
        if (!m_findings.empty() && m_findings.back().code == FindingCode::MORE_FINDINGS) {
            m_more = std::move(m_findings.back());
            m_findings.pop_back();
        }
    }

    using List = std::vector<const Finding*>;

    /// Those of a type, or of the file for NO_TYPE_ID, in the order of their offsets.
    List of(unsigned int typeId) const {
        // One past NO_TYPE_ID is 0: the file comes first.
        const auto rank = [](unsigned int id) { return id + 1; };
        const auto first =
            std::partition_point(m_findings.begin(), m_findings.end(), [&](const Finding& finding) {
                return rank(finding.typeId) < rank(typeId);
            });
        List found;
        for (auto next = first; next != m_findings.end() && next->typeId == typeId; ++next)
            found.push_back(&*next);
        return found;
    }

    const std::optional<Finding>& more() const { return m_more; }

    bool hasError() const {
        return std::any_of(m_findings.begin(), m_findings.end(), [](const Finding& finding) {
            return finding.severity == Severity::ERROR;
        });
    }

private:
    std::vector<Finding> m_findings;
    std::optional<Finding> m_more;
};

/// One run over a file.
class FileAnnotator {
public:
    FileAnnotator(std::ostream& out, OVAT::IBlockManager& storage, unsigned long long storageSize,
                  const Annotation& annotation)
        : m_out(out), m_frame(storage, storageSize, annotation.baseOffset),
          m_sweep(storage, storageSize, SWEEP_BLOCK),
          m_jumps(storage, storageSize, RECORD_HEAD_BLOCK), m_size(storageSize),
          m_findings(TypeFile::verify(storage, storageSize, annotation.baseOffset)),
          m_shapeOf(annotation.force || !m_findings.hasError() ? annotation.shapeOf : nullptr),
          m_progress(annotation.progress), m_writer(annotation.form == AnnotationForm::JSON
                                                        ? jsonAnnotations(out)
                                                        : textAnnotations(out, annotation.style)),
          m_describe([this](unsigned int id) { return describe(id); }) {}

    void writeAll();
    void writeType(unsigned int typeId);

    /// Whether an error was written.
    bool end() {
        if (m_findings.more())
            writeLoose(*m_findings.more());
        m_writer->end(m_errors, m_warnings);
        return m_errors != 0;
    }

private:
    /// Where a record begins, or the header or the table.
    struct Place {
        unsigned long long offset;
        unsigned int typeId; ///< NO_TYPE_ID for header and table.
        AnnotatedPart::Kind kind;
    };

    std::string describe(unsigned int typeId);
    RecordHead headOf(unsigned int typeId);
    std::vector<Place> placesInOrder();
    void writeGap(unsigned long long begin, unsigned long long end);
    unsigned long long writeHeader();
    unsigned long long writeTable();
    void writeEntry(unsigned int typeId);
    unsigned long long writeRecord(const std::vector<unsigned int>& typeIds,
                                   unsigned long long address, unsigned long long next);
    void writeOverlapping(unsigned long long address, unsigned long long next);

    // Fields, with the findings that are about them.
    bool writeField(const RecordField& field);
    void writeFindingsBefore(unsigned long long offset);
    void endPart();
    void writeLoose(const Finding& finding);
    void write(const Finding& finding);

    std::ostream& m_out;
    TypeFile::TypeFileFrame m_frame;
    StorageWindow m_sweep;
    StorageWindow m_jumps; ///< For the types that fields refer to, which lie anywhere.
    unsigned long long m_size;
    FindingsByType m_findings;
    DescribeType m_shapeOf; ///< Null where no types are to be loaded.
    const std::function<void(unsigned long long)>& m_progress;
    std::unique_ptr<AnnotationWriter> m_writer;
    DescribeType m_describe;

    FindingsByType::List m_pending; ///< Of the part that is being written, in their order.
    std::size_t m_nextPending = 0;
    std::size_t m_errors = 0;
    std::size_t m_warnings = 0;
};

std::string FileAnnotator::describe(unsigned int typeId) {
    if (typeId >= m_frame.typeCount())
        return "there is no such type";
    if (typeId >= m_frame.entryCount())
        return "";
    const RecordHead head = headOf(typeId);
    if (!head.isThere)
        return "its record is not in the storage";
    return head.label.empty() ? std::string(head.kind)
                              : fmt::format("{} {}", head.kind, head.label);
}

/// With a shape for a type without a name.
RecordHead FileAnnotator::headOf(unsigned int typeId) {
    RecordHead head = recordHeadAt(m_jumps, m_frame.addressOf(typeId));
    const std::string shape = m_shapeOf && head.isThere ? m_shapeOf(typeId) : "";
    if (!shape.empty())
        head.label += (head.label.empty() ? "" : " ") + shape;
    return head;
}

/// Those at the same offset: the header first, then the table, then records by their ids.
std::vector<FileAnnotator::Place> FileAnnotator::placesInOrder() {
    std::vector<Place> places;
    const std::vector<unsigned long long> addresses = m_frame.addresses();
    places.reserve(addresses.size() + 2);
    places.push_back({m_frame.baseOffset(), NO_TYPE_ID, AnnotatedPart::Kind::HEADER});
    if (m_frame.typeCount() != 0)
        places.push_back({m_frame.tableOffset(), NO_TYPE_ID, AnnotatedPart::Kind::ADDRESS_TABLE});
    for (unsigned int id = 0; id < addresses.size(); ++id)
        places.push_back({addresses[id], id, AnnotatedPart::Kind::RECORD});
    const auto isBefore = [](const Place& left, const Place& right) {
        return left.offset < right.offset;
    };
    std::stable_sort(places.begin(), places.end(), isBefore);
    return places;
}

void FileAnnotator::writeAll() {
    const std::vector<Place> places = placesInOrder();
    unsigned long long covered = m_frame.baseOffset();
    for (std::size_t i = 0; i < places.size() && m_out;) {
        const Place& place = places[i];
        writeGap(covered, place.offset);
        std::vector<unsigned int> sharers;
        std::size_t next = i;
        do
            sharers.push_back(places[next++].typeId);
        while (place.kind == AnnotatedPart::Kind::RECORD && next < places.size() &&
               places[next].offset == place.offset);
        const unsigned long long end =
            place.kind == AnnotatedPart::Kind::HEADER ? writeHeader()
            : place.kind == AnnotatedPart::Kind::ADDRESS_TABLE
                ? writeTable()
                : writeRecord(sharers, place.offset,
                              next < places.size() ? places[next].offset : m_size);
        covered = std::max(covered, end);
        if (m_progress)
            m_progress(covered);
        i = next;
    }
    writeGap(covered, m_size);
}

/// What the file as a whole is accused of stands in front.
void FileAnnotator::writeType(unsigned int typeId) {
    if (!m_findings.of(NO_TYPE_ID).empty())
        writeHeader();
    if (typeId < m_frame.typeCount()) {
        m_writer->beginPart(
            {AnnotatedPart::Kind::ADDRESS_TABLE, m_frame.entryOffset(typeId), ADDRESS_SIZE});
        writeEntry(typeId);
        m_writer->endPart();
    }
    if (typeId < m_frame.entryCount()) {
        const unsigned long long address = m_frame.addressOf(typeId);
        writeRecord({typeId}, address, m_size);
    }
}

void FileAnnotator::writeGap(unsigned long long begin, unsigned long long end) {
    end = std::min(end, m_size);
    if (begin >= end)
        return;
    m_writer->beginPart({AnnotatedPart::Kind::GAP, begin, end - begin});
    m_writer->field({FieldState::UNREAD, FieldForm::END_OF_LIST, "", begin, end - begin, "", ""},
                    m_sweep);
    m_writer->endPart();
}

unsigned long long FileAnnotator::writeHeader() {
    m_writer->beginPart({AnnotatedPart::Kind::HEADER, m_frame.baseOffset(), HEADER_SIZE});
    m_pending = m_findings.of(NO_TYPE_ID);
    const unsigned long long end =
        readHeaderFields(m_sweep, std::min(m_frame.baseOffset(), m_size),
                         [this](const RecordField& f) { return writeField(f); });
    endPart();
    return end;
}

unsigned long long FileAnnotator::writeTable() {
    m_writer->beginPart(
        {AnnotatedPart::Kind::ADDRESS_TABLE, m_frame.tableOffset(), m_frame.tableSize()});
    for (unsigned int id = 0; id < m_frame.entryCount() && m_out; ++id)
        writeEntry(id);
    if (m_frame.entryCount() != m_frame.typeCount())
        writeEntry(m_frame.entryCount());
    m_writer->endPart();
    return m_frame.entryOffset(m_frame.entryCount());
}

/// The entry of a type; where it is not in the storage, those behind it are not there either.
void FileAnnotator::writeEntry(unsigned int typeId) {
    RecordField field{FieldState::WHOLE,
                      FieldForm::OFFSET,
                      fmt::format("{}[{}]", Field::ADDRESS, typeId),
                      m_frame.entryOffset(typeId),
                      ADDRESS_SIZE,
                      "",
                      ""};
    if (typeId < m_frame.entryCount()) {
        field.value = fmt::format("{:#x}", m_frame.addressOf(typeId));
        field.meaning = describe(typeId);
        field.typeId = typeId;
    } else {
        field.state = FieldState::MISSING;
        if (m_frame.typeCount() - typeId > 1)
            field.lastItem = m_frame.typeCount() - 1;
        field.offset = std::min(field.offset, m_size);
        field.size = m_size - field.offset < ADDRESS_SIZE ? m_size - field.offset : 0;
        field.value = "(missing)";
        field.meaning = "the storage ends here";
    }
    m_writer->field(field, m_sweep);
    for (const Finding* finding : m_findings.of(typeId))
        if (finding->field == Field::ADDRESS)
            write(*finding);
}

/// The answer is where the record ends, at most the beginning of what is next in the storage. A
/// record that shares bytes with that is not read behind its kind, so that no byte is looked at
/// again and again.
unsigned long long FileAnnotator::writeRecord(const std::vector<unsigned int>& typeIds,
                                              unsigned long long address, unsigned long long next) {
    for (const unsigned int id : typeIds)
        for (const Finding* finding : m_findings.of(id))
            if (finding->field != Field::ADDRESS)
                m_pending.push_back(finding);
    std::stable_sort(m_pending.begin(), m_pending.end(),
                     [](const Finding* l, const Finding* r) { return l->offset < r->offset; });
    const unsigned long long size = m_frame.recordAt(address).size();
    m_writer->beginPart(
        {AnnotatedPart::Kind::RECORD, address, size, typeIds, headOf(typeIds.front())});
    if (address < m_size && address + size > next)
        writeOverlapping(address, next);
    else if (size != 0)
        readRecordFields(m_sweep, address, m_describe,
                         [this](const RecordField& field) { return writeField(field); });
    endPart();
    return std::min(address + size, next);
}

void FileAnnotator::writeOverlapping(unsigned long long address, unsigned long long next) {
    unsigned long long end = address;
    readRecordFields(m_sweep, address, m_describe, [&](const RecordField& field) {
        writeField(field);
        end = field.offset + field.size;
        return field.form == FieldForm::RECORD_SIZE;
    });
    if (end < next)
        writeField({FieldState::UNREAD, FieldForm::END_OF_LIST, "body", end, next - end, "",
                    "the record overlaps what follows; annotate its type by itself", NO_TYPE_ID});
}

bool FileAnnotator::writeField(const RecordField& field) {
    writeFindingsBefore(field.offset);
    m_writer->field(field, m_sweep);
    writeFindingsBefore(field.offset + std::max<unsigned long long>(field.size, 1));
    return static_cast<bool>(m_out);
}

void FileAnnotator::writeFindingsBefore(unsigned long long offset) {
    while (m_nextPending < m_pending.size() && m_pending[m_nextPending]->offset < offset)
        write(*m_pending[m_nextPending++]);
}

/// With the findings that are about no field of it.
void FileAnnotator::endPart() {
    while (m_nextPending < m_pending.size())
        write(*m_pending[m_nextPending++]);
    m_pending.clear();
    m_nextPending = 0;
    m_writer->endPart();
}

/// A finding that is about no bytes stands in a part of its own.
void FileAnnotator::writeLoose(const Finding& finding) {
    m_writer->beginPart({AnnotatedPart::Kind::FILE, m_frame.baseOffset(),
                         m_size - std::min(m_frame.baseOffset(), m_size)});
    write(finding);
    m_writer->endPart();
}

void FileAnnotator::write(const Finding& finding) {
    ++(finding.severity == Severity::ERROR ? m_errors : m_warnings);
    m_writer->finding(finding);
}

} // namespace

bool annotate(std::ostream& out, OVAT::IBlockManager& storage, unsigned long long storageSize,
              const Annotation& annotation) {
    FileAnnotator annotator(out, storage, storageSize, annotation);
    if (annotation.typeId)
        annotator.writeType(*annotation.typeId);
    else
        annotator.writeAll();
    return annotator.end();
}

} // namespace Inspect
