#include "host/report.h"

#include <cstdio>

void PrintReport::line(const std::string& text)
{
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

void PrintReport::box(const std::string& title, const std::string& text)
{
    line(title + ": " + text + "\n");
}
