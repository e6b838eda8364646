#pragma once

#include "OVAT/IBlockManager.h"
#include "TypeFile/Finding.h"
#include "TypeFile/VerifyLimits.h"

#include <memory>
#include <vector>

namespace TypeFile {

/// Checks the type file whose header is at `baseOffset` in a storage of `storageSize` bytes.
///
/// If a file has no errors, every type loads, and every query on every type ends and is safe; a
/// warning names each type whose constraint walk takes more steps than the limit. The findings are
/// ordered: first those of the whole file, then by type id, then by offset. A record that cannot be
/// read completely gives one error, and whatever depends on its fields is not examined.
///
/// Takes time linear in the size of the file, plus `maxCountingSteps`, plus the time to sort the
/// record addresses if they are not ascending. Takes up to 100 bytes of memory for each type, and 8
/// for each reference of a type that comes before what it refers to: never more than the file
/// itself. No contents make it throw; exceptions of the storage within its stated size pass
/// through, and so does std::bad_alloc.
std::vector<Finding> verify(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, const VerifyLimits& limits = {});

class Verification;

/// Checks some types of a file and everything that they lead to, for programs that load no others.
///
/// If there are no errors, these types load, and every query on them ends and is safe. What is
/// wrong with records elsewhere is not found. The constructor reads the address table; a call of
/// `verify` takes time linear in the records that no earlier call has read. Takes up to 100 bytes
/// of memory for each type in the file.
class TypeVerifier {
public:
    /// For the type file whose header is at `baseOffset` in a storage of `storageSize` bytes. The
    /// storage must outlive this object.
    TypeVerifier(OVAT::IBlockManager& storage, unsigned long long storageSize,
                 unsigned long long baseOffset, const VerifyLimits& limits = {});
    TypeVerifier(const TypeVerifier&) = delete;
    TypeVerifier& operator=(const TypeVerifier&) = delete;
    ~TypeVerifier();

    /// The findings that no earlier call has returned: those about the header, the address table,
    /// the types with these ids, and the types below them. An id outside the table has no findings.
    /// The order and the exceptions are those of `TypeFile::verify`.
    std::vector<Finding> verify(const std::vector<unsigned int>& typeIds);

private:
    std::unique_ptr<Verification> m_verification;
    bool m_hasTable;
};

/// Whether any of the findings is an error.
bool hasErrors(const std::vector<Finding>& findings);

} // namespace TypeFile
