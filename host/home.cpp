#include "host/home.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

static std::string homeFolder()
{
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value ? value : "");
    };
    std::string folder = variable("TREVIA_HOME");
    if (folder.empty()) {
        const std::string data = variable("XDG_DATA_HOME");
        folder = (data.empty() ? variable("HOME") + "/.local/share" : data) + "/trevia";
    }
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

const char* GetHome()
{
    static std::string folder;  // the caller gets a C string that lives until the next call
    folder = homeFolder();
    return folder.c_str();
}

bool makeHome()
{
    for (const char* sub : {"/port/misc", "/port/db/segy", "/linux/lib", "/docs/meridune-docs"}) {
        std::error_code error;
        std::filesystem::create_directories(GetHome() + std::string(sub), error);
        if (error) return false;
    }
    return true;
}

/// A name of one folder: no slash, no dots alone.
static bool isFolderName(const std::string& name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

const char* treviaLinePath(const char* area, const char* line)
{
    static std::string folder;
    folder = isFolderName(area) && isFolderName(line) ? homeFolder() + "/areas/" + area + "/" + line : "";
    return folder.c_str();
}
