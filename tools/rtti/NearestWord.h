#pragma once

#include <string>
#include <vector>

/// The word that takes the fewest letters to be put in, left out or replaced to become `word`; the
/// first of these. There is at least one.
std::string nearestWord(const std::string& word, const std::vector<std::string>& words);
