#include "Recorder.h"

#include <fstream>

#include "Script.h"

void Record(const std::string& what, const std::string& text) {
    const std::string path = Environment("SORVIK_BENCH_CONFIGURATOR_RECORD");
    if (path.empty()) return;
    std::ofstream file(path, std::ios::binary | std::ios::app);
    file << what << ' ' << text << '\n';
}
