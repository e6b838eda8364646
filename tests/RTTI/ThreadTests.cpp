// What threads may do at the same time, as ThreadSanitizer sees it.

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/LastingAnswers.h"

#include <gtest/gtest.h>

#include <barrier>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace RTTI;
using RTTITest::Answers;
using RTTITest::encodings;
using RTTITest::lastingAnswers;

constexpr unsigned int threadCount = 4;

/// Lets `work` run in several threads, each with its number, from one moment on, and waits for all.
void inThreads(const std::function<void(unsigned int)>& work) {
    std::barrier start(threadCount);
    std::vector<std::thread> threads;
    for (unsigned int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&work, &start, number] {
            start.arrive_and_wait();
            work(number);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

/// The types of a test bench: hundreds of classes that lead to one another.
class Design {
public:
    void load() {
        m_manager.setupDeserializer(m_storage, 0);
        m_manager.readAllRTTypes();
    }
    RTTypeManager& manager() { return m_manager; }

private:
    OVAT::FileBlockManager m_storage{EXAMPLE_TYPEFILES_DIR "/uvm_slang.typ"};
    RTTypeManager m_manager;
};

TEST(Threads, LoadAskAndDestroyAManagerEach) {
    auto alone = std::make_unique<Design>();
    alone->load();
    const Answers expected = encodings(alone->manager());
    const Answers expectedLasting = lastingAnswers(alone->manager());
    ASSERT_GT(expected.size(), 1000U);
    RTTypeManager::m_instance = &alone->manager(); // Which the first destructor clears.
    std::vector<Answers> answers(threadCount);
    std::vector<Answers> lasting(threadCount);
    inThreads([&](unsigned int number) {
        const auto design = std::make_unique<Design>();
        design->load();
        answers[number] = encodings(design->manager());
        lasting[number] = lastingAnswers(design->manager());
    });
    EXPECT_EQ(RTTypeManager::m_instance, nullptr);
    for (unsigned int number = 0; number < threadCount; ++number) {
        EXPECT_EQ(answers[number], expected);
        EXPECT_EQ(lasting[number], expectedLasting);
    }
}

TEST(Threads, AskTheTypesOfOneManager) {
    Design design;
    design.load();
    const Answers expected = lastingAnswers(design.manager());
    std::vector<Answers> answers(threadCount);
    inThreads([&](unsigned int number) {
        encodings(design.manager());
        answers[number] = lastingAnswers(design.manager());
    });
    for (const Answers& given : answers)
        EXPECT_EQ(given, expected);
}

TEST(Threads, EachGetOneOfTheAnswersThatAClassHas) {
    // Asked one after the other the class answers "4-State" once, then "2-State".
    RTSeqEnumType logic;
    logic.m_valueEncoding = ENCODING_4_STATE;
    for (int round = 0; round < 50; ++round) {
        RTClassType base;
        base.m_memberTypes.push_back(&logic);
        RTClassType derived;
        derived.m_baseClass = &base;
        RTTypedefType alias;
        alias.m_dataType = &derived;
        std::vector<std::vector<ValueEncoding>> answers(threadCount);
        inThreads([&](unsigned int number) {
            for (int i = 0; i < 3; ++i)
                answers[number].push_back(alias.getValueEncoding());
        });
        bool isFirstAnswerGiven = false;
        for (const std::vector<ValueEncoding>& given : answers) {
            isFirstAnswerGiven = isFirstAnswerGiven || given[0] == ENCODING_4_STATE;
            EXPECT_EQ(given[1], ENCODING_2_STATE);
            EXPECT_EQ(given[2], ENCODING_2_STATE);
        }
        EXPECT_TRUE(isFirstAnswerGiven);
        EXPECT_EQ(derived.getValueEncoding(), ENCODING_2_STATE);
        EXPECT_EQ(base.getValueEncoding(), ENCODING_4_STATE);
    }
}

TEST(Threads, SetAndAskSVTypeIds) {
    RTRecordType record;
    RTQueueType queue;
    RTArrayType array;
    RTTypedefType alias;
    alias.m_dataType = &record;
    inThreads([&](unsigned int number) {
        for (const RTBaseType* type :
             {static_cast<const RTBaseType*>(&record), static_cast<const RTBaseType*>(&queue),
              static_cast<const RTBaseType*>(&array)}) {
            type->setSVTypeId(static_cast<int>(number));
            EXPECT_GE(type->getSVTypeId(), 0);
            EXPECT_LT(type->getSVTypeId(), static_cast<int>(threadCount));
        }
        EXPECT_GE(alias.getSVTypeId(), 0);
    });
}

std::string traceOfLoads(unsigned int count) {
    const auto load = [](unsigned int) {
        OVAT::FileBlockManager storage(EXAMPLE_TYPEFILES_DIR "/svkinds_slang.typ");
        RTTypeManager manager;
        manager.setupDeserializer(storage, 0);
        manager.setDebugMode();
        manager.readAllRTTypes();
    };
    testing::internal::CaptureStdout();
    if (count == 1)
        load(0);
    else
        inThreads(load);
    return testing::internal::GetCapturedStdout();
}

TEST(Threads, TraceTheirLoadsSideBySideAndLoseNothing) {
    const std::size_t alone = traceOfLoads(1).size();
    EXPECT_GT(alone, 1000U);
    EXPECT_EQ(traceOfLoads(threadCount).size(), threadCount * alone);
}

} // namespace
