#pragma once

#include "tests/support/RecordingBlockManager.h"
#include "tests/support/TypeTableModel.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace RTTITest {

/// Every field of a type as one line of text, "field=value" in a fixed order. A link shows as the
/// id of the slot whose object it points at, or as null.
using Description = std::vector<std::string>;

/// A link to a type: the slot's id, nothing where the link is null.
using Link = std::optional<std::uint32_t>;

std::string linkText(const Link& link);

/// Bytes in hexadecimal.
std::string hexText(const std::string& bytes);

/// Bit pattern of a double, so that signs of zero and NaNs count.
std::string bitsText(double value);

/// Loads a model file from its tokens and predicts what the library has to do: which types come
/// out, which storage reads are made in which order and what the trace says. It shares no code with
/// the library and never looks at the encoded bytes.
class ReferenceLoader {
public:
    explicit ReferenceLoader(const ModelFile& file);

    void setup();
    Link readAll();
    Link get(std::uint32_t id);

    /// Null where the slot is empty.
    const Description* type(std::uint32_t id) const { return m_types[id].get(); }
    const std::vector<std::uint32_t>& classIds() const { return m_classIds; }

    /// The reads and the trace since the last call.
    std::vector<RecordingBlockManager::Read> takeReads() { return std::exchange(m_reads, {}); }
    std::string takeTrace();

    /// How many records were read although their slot was filled before they were done.
    std::size_t lostReads() const { return m_lostReads; }

    /// How many references were given up because they can never end.
    std::size_t endlessReferences() const { return m_endlessReferences; }

    /// How many references were given up because their record is open too often.
    std::size_t cutReferences() const { return m_cutReferences; }

private:
    class Fields;
    struct OpenRecord {
        std::uint32_t id;
        std::size_t filledBefore;
    };

    bool isEndless(std::uint32_t id) const;
    void readRecord(std::uint32_t id);
    void dispatch(std::uint32_t id, Fields& fields);
    bool enter(std::uint32_t id, Description description);
    void item(const std::string& label, const std::string& value, const std::string& tail,
              bool end);
    template <typename T>
    void number(const std::string& label, T value, const std::string& tail, bool end);
    void common(const char* heading, Fields& fields, Description& out);
    void constraint(Fields& fields, Description& out);
    void constraintVector(Fields& fields, Description& out);

    void seqEnum(Fields& fields, Description& out);
    void discreteEnum(Fields& fields, Description& out);
    void integer(Fields& fields, Description& out);
    void real(Fields& fields, Description& out);
    void event(Fields& fields, Description& out);
    void physical(Fields& fields, Description& out);
    void typedefType(Fields& fields, Description& out);
    void file(Fields& fields, Description& out);
    std::uint32_t reference(const char* heading, Fields& fields, Description& out);
    void access(std::uint32_t id, Fields& fields);
    void array(Fields& fields, Description& out);
    void dynamicArray(Fields& fields, Description& out);
    void queue(Fields& fields, Description& out);
    void assocArray(Fields& fields, Description& out);
    void record(std::uint32_t id, Fields& fields);
    void classType(std::uint32_t id, Fields& fields);
    std::uint32_t member(Fields& fields, Description& out);
    void resolve(std::uint32_t id, const char* field, const std::vector<std::uint32_t>& typeIds);

    const ModelFile& m_file;
    std::vector<std::unique_ptr<Description>> m_types;
    std::vector<std::uint32_t> m_classIds;
    std::vector<RecordingBlockManager::Read> m_reads;
    std::ostringstream m_trace;
    std::vector<OpenRecord> m_open;
    std::vector<unsigned int> m_timesOpen; ///< By id.
    std::size_t m_filled = 0;
    std::size_t m_lostReads = 0;
    std::size_t m_endlessReferences = 0;
    std::size_t m_cutReferences = 0;
};

} // namespace RTTITest
