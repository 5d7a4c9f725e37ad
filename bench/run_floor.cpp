// The floor of a run: judges four columns of a table without quotes and prints as if-workbench --run does,
// with nothing of the project in it. With --summary it only counts. Rows that are too short or too long are
// skipped, so that every byte is looked at.
//   run_floor [--summary] < table.csv

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

constexpr std::size_t blockSize = 1 << 18;

// Of the columns after the first.
constexpr struct
{
    double minimum;
    double maximum;
    std::string_view bounds;
} conditions[] = {{10, 20, ",10,20"}, {15, 25, ",15,25"}, {60, 120, ",60,120"}, {300, 1000, ",300,1000"}};

int main(int argc, char** argv)
{
    const bool countsOnly = argc > 1 && std::string_view(argv[1]) == "--summary";
    std::vector<char> buffer(2 * blockSize);
    static char output[40 * blockSize]; // a row has at least 5 bytes and is printed with less than 200
    std::size_t kept = 0;
    std::size_t line = 0;
    std::ptrdiff_t columns = 0;
    std::size_t okRows = 0;
    std::size_t met[std::size(conditions)] = {};
    for (std::size_t size; (size = std::fread(buffer.data() + kept, 1, blockSize, stdin)) > 0;) {
        const char* row = buffer.data();
        const char* const end = row + kept + size;
        char* out = output;
        const auto put = [&out](std::string_view text) { out += text.copy(out, text.size()); };
        const auto find = [&row, end](char c) {
            return static_cast<const char*>(std::memchr(row, c, static_cast<std::size_t>(end - row)));
        };
        for (const char* next; (next = find('\n')); row = next + 1) {
            const auto separators = std::count(row, next, ',');
            columns = line == 0 ? separators : columns;
            if (++line == 1 || separators != columns) {
                continue;
            }
            double values[std::size(conditions)];
            bool isIn[std::size(conditions)];
            bool isOk = true;
            const char* field = find(',');
            for (std::size_t i = 0; i < std::size(conditions); ++i) {
                field = std::from_chars(field + 1, next, values[i]).ptr;
                isIn[i] = conditions[i].minimum <= values[i] && values[i] <= conditions[i].maximum;
                met[i] += isIn[i];
                isOk &= isIn[i];
            }
            okRows += isOk;
            if (countsOnly) {
                continue;
            }
            out = std::to_chars(out, out + 20, line).ptr;
            put(isOk ? ",OK" : ",not OK");
            for (std::size_t i = 0; i < std::size(conditions); ++i) {
                put(",");
                out = std::to_chars(out, out + 32, values[i], std::chars_format::general, 15).ptr;
                put(conditions[i].bounds);
                put(isIn[i] ? ",in" : ",out");
            }
            put("\n");
        }
        std::fwrite(output, 1, static_cast<std::size_t>(out - output), stdout);
        kept = static_cast<std::size_t>(end - row);
        std::memmove(buffer.data(), row, kept);
    }
    std::fprintf(stderr, "%zu of %zu rows OK\n", okRows, line - 1);
    for (const std::size_t count : met) {
        std::fprintf(stderr, "%zu in\n", count);
    }
}
