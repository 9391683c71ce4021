#include <runs/ReportRuns.h>

#include <cstdio>

int main(int count, char** files)
{
    ZYN::ReportRuns reader; // one for all files: their runs share layouts and limits
    for (int file = 1; file < count; ++file) {
        std::vector<ZYN::Run> runs;
        if (const auto fault = reader.ReadFile(files[file], &runs))
            std::fprintf(stderr, "%s:%ld: %s\n", files[file], long(fault->line), fault->text.c_str());
        for (const ZYN::Run& run : runs) {
            std::printf("%s %s\n", run.serial.c_str(), run.code > 0 ? "passed" : "not passed");
            for (std::size_t position = 0; position < run.codes.size(); ++position) {
                const ZYN::RunComponent& component = run.layout->components[position];
                if (component.kind == ZYN::ComponentKind::Measurement && run.codes[position] < 0)
                    std::printf("  %s: %g %s\n", component.path.c_str(), run.values[position],
                                component.unit.c_str());
            }
        }
    }
}
