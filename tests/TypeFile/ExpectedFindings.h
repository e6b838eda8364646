#pragma once

// What the verifier finds in a file that a test has built, and the comparison with what it should
// find.

#include "RTTI/RTType.h"
#include "TypeFile/TypeFileVerifier.h"
#include "tests/support/TypeFileBuilder.h"

#include <cstddef>
#include <string>
#include <vector>

/// The type id of findings that concern the file as a whole.
constexpr unsigned int FILE_LEVEL = RTTI::TypeFileFormat::NO_TYPE_ID;

constexpr unsigned int NO_BASE = RTTI::TypeFileFormat::NO_TYPE_ID;

/// Where the fields of a kind begin in a record whose name has one character.
constexpr unsigned int BODY = 14;

/// The direction of an open range.
constexpr int OPEN = -2;

std::vector<TypeFile::Finding> findingsOf(const std::string& image, unsigned long long base = 0,
                                          const TypeFile::VerifyLimits& limits = {});
std::vector<TypeFile::Finding> findingsOf(const TypeFileBuilder& file,
                                          const TypeFile::VerifyLimits& limits = {});

std::string linesOf(const std::vector<TypeFile::Finding>& findings);

void expectClean(const TypeFileBuilder& file);

/// The finding at `place` is this one.
void expectFinding(const std::vector<TypeFile::Finding>& findings, std::size_t place,
                   TypeFile::FindingCode code, TypeFile::Severity severity, unsigned int typeId,
                   const std::string& field, unsigned long long offset);

/// There is this finding alone; the answer is its sentence.
std::string expectError(const std::vector<TypeFile::Finding>& findings, TypeFile::FindingCode code,
                        unsigned int typeId, const std::string& field, unsigned long long offset);
std::string expectWarning(const std::vector<TypeFile::Finding>& findings,
                          TypeFile::FindingCode code, unsigned int typeId, const std::string& field,
                          unsigned long long offset);

/// Replaces a byte of an image.
void patch(std::string& image, unsigned long long offset, unsigned char value);
