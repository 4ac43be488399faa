#include "fuzz/scheme_property.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const std::string file =
        (std::filesystem::temp_directory_path() / ("scheme-fuzz-" + std::to_string(getpid()))).string();
    const std::string fault = tarveth::SchemeFault({reinterpret_cast<const char*>(data), size}, file);
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    std::filesystem::remove(file);
    return 0;
}
