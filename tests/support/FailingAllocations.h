#pragma once

#include <cstddef>
#include <new>

// The program's allocations, counted and made to fail. A test program that links this replaces the
// allocation functions, and wraps `malloc` and `calloc`, for all of its code.

/// How many allocations the program has made.
std::size_t allocationCount();

/// How many allocations by `new` have not been given back.
std::size_t liveAllocations();

/// While this lives, the allocation of this number from now on (the next is 1) fails.
class FailingAllocation {
public:
    explicit FailingAllocation(std::size_t number);
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation();

    /// Whether that allocation has been tried. What tries it may do without the memory.
    bool happened() const;

private:
    std::size_t m_number;
};

/// Makes `call` with its first allocation failing, then with its second, and so on until it comes
/// to its end; after each failure `afterwards` runs. Returns how many failed.
template <typename Call, typename Afterwards>
std::size_t failEachAllocation(Call call, Afterwards afterwards) {
    for (std::size_t number = 1;; ++number) {
        const FailingAllocation failing(number);
        try {
            call();
            if (!failing.happened())
                return number - 1;
        } catch (const std::bad_alloc&) {
            afterwards(number);
        }
    }
}
