// Files made to cost memory: what reading them takes stays within twenty times their size.
#include "base/json_document.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <malloc.h>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

std::atomic<std::size_t> held{0}, most{0};

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    void* memory = std::malloc(size);
    if (!memory)
        return nullptr;
    const std::size_t now = held += ::malloc_usable_size(memory);
    most = std::max(most.load(), now);
    return memory;
}

void* operator new(std::size_t size)
{
    void* memory = operator new(size, std::nothrow);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    held -= ::malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    operator delete(memory);
}

namespace {

using base::JsonDocument;

constexpr std::size_t largeSize = 1024 * 1024;

std::string repeated(const std::function<std::string(int)>& part)
{
    std::string text;
    for (int i = 0; text.size() < largeSize; ++i)
        text += (i == 0 ? "" : ",") + part(i);
    return text;
}

struct Hostile
{
    const char* label;
    std::string text;
};

std::vector<Hostile> hostileFiles()
{
    const auto number = [](int i) { return std::to_string(i); };
    return {
        {"Zeros", "[" + repeated([](int) { return "0"; }) + "]"},
        {"Arrays", "[" + repeated([](int) { return "[]"; }) + "]"},
        {"Objects", "[" + repeated([](int) { return "{}"; }) + "]"},
        {"Members", "{" + repeated([&](int i) { return "\"" + number(i) + "\":0"; }) + "}"},
        {"OneKey", "{" + repeated([](int) { return "\"a\":0"; }) + "}"},
        {"OneText", "\"" + std::string(largeSize, 'x') + "\""},
        {"OneName", "{\"" + std::string(largeSize, 'x') + "\":{\"a\":1,\"a\":2}}"},
        {"OneNumber", "{\"a\":" + std::string(largeSize, '1') + "}"},
        {"Nested", std::string(largeSize, '[')},
        {"LongNames", "{" + repeated([&](int i) {
                          return "\"" + std::string(200, 'n') + number(i) + "\":0";
                      }) + "}"},
    };
}

TEST(JsonMemory, StaysWithinTwentyTimesTheFile)
{
    for (const Hostile& file : hostileFiles()) {
        const std::size_t before = held;
        most = before;
        std::size_t told = 0;
        {
            JsonDocument document = JsonDocument::parse(file.text, "hostile.json");
            document.root().at("known");
            for (const auto& [name, value] : document.root().at("a").members())
                value.reject("something else", "nothing");
            document.rejectUnknownKeys("the file without it");
            for (const base::JsonProblem& problem : document.problems())
                told += base::describe("hostile.json", problem).size();
        }
        EXPECT_LE(most - before, 20 * file.text.size()) << file.label;
        EXPECT_LE(told, 64u * 1024) << file.label;
    }
}

} // namespace
