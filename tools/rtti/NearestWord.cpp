#include "NearestWord.h"

#include <algorithm>
#include <numeric>

namespace {

std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() +
                                 1); // From what has been seen of `a` to each start of `b`.
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearestWord(const std::string& word, const std::vector<std::string>& words) {
    return *std::min_element(words.begin(), words.end(),
                             [&](const std::string& a, const std::string& b) {
                                 return distance(word, a) < distance(word, b);
                             });
}
