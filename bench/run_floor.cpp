// The floor of a run: reads a table without quotes, judges four columns and prints as if-workbench --run
// does, with nothing of the project in it. With --summary it only counts.
//   run_floor [--summary] < table.csv

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

#include <unistd.h>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t blockSize = 1 << 18;
constexpr int width = 16;

struct Condition
{
    std::size_t column;
    double minimum;
    double maximum;
    std::string_view bounds;
};
constexpr Condition conditions[] = {
    {1, 10, 20, ",10,20"}, {2, 15, 25, ",15,25"}, {3, 60, 120, ",60,120"}, {4, 300, 1000, ",300,1000"}};

unsigned separatorsIn(const char* bytes)
{
#if defined(__SSE2__)
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    return static_cast<unsigned>(_mm_movemask_epi8(
        _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8(',')), _mm_cmpeq_epi8(block, _mm_set1_epi8('\n')))));
#else
    unsigned found = 0;
    for (int i = 0; i < width; ++i) {
        found |= unsigned(bytes[i] == ',' || bytes[i] == '\n') << i;
    }
    return found;
#endif
}

} // namespace

int main(int argc, char** argv)
{
    const bool countsOnly = argc > 1 && std::string_view(argv[1]) == "--summary";
    std::vector<char> buffer(2 * blockSize + width);
    std::vector<char> output(2 * blockSize);
    char* out = output.data();
    const auto put = [&out](std::string_view text) { out = std::copy(text.begin(), text.end(), out); };
    std::size_t kept = 0;
    std::size_t line = 0;
    std::size_t okRows = 0;
    std::size_t met[std::size(conditions)] = {};
    std::size_t ends[1024] = {};
    for (ssize_t size; (size = read(STDIN_FILENO, buffer.data() + kept, blockSize)) > 0;) {
        const std::size_t end = kept + static_cast<std::size_t>(size);
        std::size_t begin = 0;
        std::size_t fields = 0;
        for (std::size_t block = 0; block < end; block += width) {
            for (unsigned found = separatorsIn(buffer.data() + block); found != 0; found &= found - 1) {
                const std::size_t at = block + static_cast<std::size_t>(__builtin_ctz(found));
                if (at >= end) {
                    break;
                }
                ends[fields++ % std::size(ends)] = at;
                if (buffer[at] != '\n') {
                    continue;
                }
                if (++line > 1 && fields > 1) {
                    double values[std::size(conditions)];
                    bool isIn[std::size(conditions)];
                    bool isOk = true;
                    for (std::size_t i = 0; i < std::size(conditions); ++i) {
                        const Condition& condition = conditions[i];
                        std::from_chars(buffer.data() + ends[condition.column - 1] + 1,
                                        buffer.data() + ends[condition.column], values[i]);
                        isIn[i] = condition.minimum <= values[i] && values[i] <= condition.maximum;
                        met[i] += isIn[i] ? 1 : 0;
                        isOk = isOk && isIn[i];
                    }
                    okRows += isOk ? 1 : 0;
                    if (!countsOnly) {
                        out = std::to_chars(out, out + 20, line).ptr;
                        put(isOk ? ",OK" : ",not OK");
                        for (std::size_t i = 0; i < std::size(conditions); ++i) {
                            put(",");
                            out = std::to_chars(out, out + 32, values[i], std::chars_format::general, 15).ptr;
                            put(conditions[i].bounds);
                            put(isIn[i] ? ",in" : ",out");
                        }
                        put("\n");
                        if (static_cast<std::size_t>(out - output.data()) > blockSize) {
                            std::fwrite(output.data(), 1, static_cast<std::size_t>(out - output.data()),
                                        stdout);
                            out = output.data();
                        }
                    }
                }
                begin = at + 1;
                fields = 0;
            }
        }
        kept = end - begin;
        std::memmove(buffer.data(), buffer.data() + begin, kept);
    }
    std::fwrite(output.data(), 1, static_cast<std::size_t>(out - output.data()), stdout);
    std::fprintf(stderr, "%zu of %zu rows OK\n", okRows, line - 1);
    for (const std::size_t count : met) {
        std::fprintf(stderr, "%zu in\n", count);
    }
}
