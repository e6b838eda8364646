#include "TypeFile/FindingList.h"

#include "OVAT/Counted.h"
#include "RTTI/TypeFileFormat.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace TypeFile {

using RTTI::TypeFileFormat::NO_TYPE_ID;

namespace {

bool comesBefore(const Finding& left, const Finding& right) {
    // One past NO_TYPE_ID is 0: the file comes first.
    return std::make_pair(left.typeId + 1, left.offset) <
           std::make_pair(right.typeId + 1, right.offset);
}

} // namespace

bool FindingList::hasRoom(FindingCode code) const {
    const Kept& kept = severityOf(code) == Severity::ERROR ? m_errors : m_warnings;
    return kept.findings.size() < m_maxKept;
}

void FindingList::leaveOut(FindingCode code) { ++listOf(code).count; }

FindingList::Kept& FindingList::listOf(FindingCode code) {
    return severityOf(code) == Severity::ERROR ? m_errors : m_warnings;
}

void FindingList::add(FindingCode code, unsigned int typeId, std::string field,
                      unsigned long long offset, std::string text) {
    Kept& kept = listOf(code);
    ++kept.count;
    if (kept.findings.size() < m_maxKept)
        kept.findings.push_back(
            {code, severityOf(code), typeId, std::move(field), offset, std::move(text)});
}

std::vector<Finding> FindingList::take() {
    Kept errors = std::exchange(m_errors, {});
    Kept warnings = std::exchange(m_warnings, {});
    std::vector<Finding> findings = std::move(errors.findings);
    const std::size_t room = std::min(m_maxKept - findings.size(), warnings.findings.size());
    const unsigned long long lostErrors = errors.count - findings.size();
    const unsigned long long lostWarnings = warnings.count - room;
    std::move(warnings.findings.begin(),
              warnings.findings.begin() + static_cast<std::ptrdiff_t>(room),
              std::back_inserter(findings));
    std::stable_sort(findings.begin(), findings.end(), comesBefore);
    if (lostErrors + lostWarnings != 0)
        findings.push_back({FindingCode::MORE_FINDINGS,
                            lostErrors != 0 ? Severity::ERROR : Severity::WARNING, NO_TYPE_ID,
                            "findings", 0,
                            OVAT::counted(lostErrors, "more error") + " and " +
                                OVAT::counted(lostWarnings, "more warning") + " are not listed."});
    return findings;
}

} // namespace TypeFile
