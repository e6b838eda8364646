#pragma once

#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>

/// What goes to the standard output while the object lives.
class CapturedOutput {
public:
    CapturedOutput() : m_before(std::cout.rdbuf(m_text.rdbuf())) {}
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;
    ~CapturedOutput() { std::cout.rdbuf(m_before); }

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_before;
};
