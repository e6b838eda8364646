// Managers of different threads, as ThreadSanitizer sees them.

#include "OVAT/FileBlockManager.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <thread>
#include <vector>

namespace {

using namespace RTTI;

/// The types of ibex, which has no classes, and what they answer.
class Design {
public:
    Design() : m_storage(EXAMPLE_TYPEFILES_DIR "/ibex_slang.typ") {}

    void loadAndAsk() {
        m_manager.setupDeserializer(m_storage, 0);
        m_manager.readAllRTTypes();
        for (unsigned int id = 0; const RTBaseType* type = m_manager.getRTType(id); ++id) {
            Brakel_tolv::ConstraintStack<FullConstraints> stack;
            std::vector<FullConstraints> ranges;
            type->populateTypeConstraints(stack, ranges);
            m_answers.push_back(ranges.size());
            m_answers.push_back(static_cast<std::size_t>(type->getValueEncoding()));
        }
    }
    const std::vector<std::size_t>& answers() const { return m_answers; }

private:
    OVAT::FileBlockManager m_storage;
    RTTypeManager m_manager;
    std::vector<std::size_t> m_answers;
};

TEST(Threads, LoadAndAskSideBySideWithAManagerEach) {
    Design alone;
    alone.loadAndAsk();
    ASSERT_EQ(alone.answers().size(), 2U * 294U);

    std::array<Design, 4> designs;
    std::vector<std::thread> threads;
    for (Design& design : designs)
        threads.emplace_back([&design] { design.loadAndAsk(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const Design& design : designs)
        EXPECT_EQ(design.answers(), alone.answers());
}

} // namespace
