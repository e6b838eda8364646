// Writing a table that is loaded, and turning it into JSON and back. A load of the same table is
// what they stand beside.

#include "Inspect/TypeJsonReader.h"
#include "Inspect/TypeJsonWriter.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "bench/TypeStorage.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace {

using namespace RTTI;

class TableWriting : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State& state) override {
        const auto count = static_cast<unsigned int>(state.range(0));
        m_manager = std::make_unique<RTTypeManager>();
        m_manager->setupDeserializer(Bench::TypeStorage::of(count).storage, 0);
        for (unsigned int id = 0; id < count; ++id)
            m_types.push_back(m_manager->getRTType(id));
    }
    void TearDown(const benchmark::State&) override {
        m_types.clear();
        m_manager.reset();
    }

protected:
    std::string json() const {
        std::ostringstream text;
        Inspect::TypeJsonWriter writer(text, Inspect::JsonForm::DOCUMENT, "generated");
        for (unsigned int id = 0; id < m_types.size(); ++id)
            writer.type(id, *m_types[id]);
        writer.end();
        return text.str();
    }

    std::unique_ptr<RTTypeManager> m_manager;
    std::vector<const RTBaseType*> m_types;
};

BENCHMARK_DEFINE_F(TableWriting, Write)(benchmark::State& state) {
    for (auto _ : state) {
        TypeFile::TypeFileWriter writer;
        for (const RTBaseType* type : m_types)
            writer.add(*type);
        benchmark::DoNotOptimize(writer.finish().data());
    }
}

BENCHMARK_DEFINE_F(TableWriting, WriteJson)(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(json().data());
}

BENCHMARK_DEFINE_F(TableWriting, ReadJson)(benchmark::State& state) {
    const std::string text = json();
    for (auto _ : state) {
        std::istringstream in(text);
        TypeFile::TypeFileWriter writer;
        Inspect::TypeJsonReader reader(
            [&](unsigned int id, const RTBaseType& type) { writer.add(id, type); },
            [&](std::string_view version) { writer.setVersion(version); });
        reader.readDocument(in);
        benchmark::DoNotOptimize(writer.finish().data());
    }
}

BENCHMARK_REGISTER_F(TableWriting, Write)->Name("Write")->Arg(1000)->Arg(100000)->UseRealTime();
BENCHMARK_REGISTER_F(TableWriting, WriteJson)
    ->Name("WriteJson")
    ->Arg(1000)
    ->Arg(100000)
    ->UseRealTime();
BENCHMARK_REGISTER_F(TableWriting, ReadJson)
    ->Name("ReadJson")
    ->Arg(1000)
    ->Arg(100000)
    ->UseRealTime();

} // namespace
