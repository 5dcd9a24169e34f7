// SPDX-License-Identifier: MIT
// The least that a program can do with a picture file: reads it whole and writes it back by the C library.
#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::FILE* const input = std::fopen(argv[1], "rb");
    if (input == nullptr) return 1;
    std::fseek(input, 0, SEEK_END);
    const long size = std::ftell(input);
    std::rewind(input);
    if (size < 0) return 1;
    const auto count = static_cast<std::size_t>(size);
    const auto bytes = std::make_unique_for_overwrite<char[]>(count);
    if (std::fread(bytes.get(), 1, count, input) != count) return 1;
    std::fclose(input);

    std::FILE* const output = std::fopen(argv[1], "wb");
    if (output == nullptr || std::fwrite(bytes.get(), 1, count, output) != count) return 1;
    return std::fclose(output) == 0 ? 0 : 1;
}
