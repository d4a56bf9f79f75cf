#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// Image files as bytes, made by hand: those that no program would write, or not in this time.
namespace tarvin::imagebytes {

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::string bigEndian(std::uint32_t number) {
    return {static_cast<char>(number >> 24U), static_cast<char>(number >> 16U),
            static_cast<char>(number >> 8U), static_cast<char>(number)};
}

inline std::string littleEndian(std::uint32_t number) {
    const std::string bytes = bigEndian(number);
    return {bytes.rbegin(), bytes.rend()};
}

/// The check sum of the chunks of a PNG file.
inline std::uint32_t crc32(std::string_view bytes) {
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> sums{};
        for (std::uint32_t byte = 0; byte < 256; ++byte) {
            std::uint32_t sum = byte;
            for (int bit = 0; bit < 8; ++bit) {
                sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
            }
            sums[byte] = sum;
        }
        return sums;
    }();
    std::uint32_t sum = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        sum = table[(sum ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (sum >> 8U);
    }
    return ~sum;
}

inline std::string pngChunk(std::string_view type, std::string_view content) {
    std::string checked(type);
    checked += content;
    return bigEndian(static_cast<std::uint32_t>(content.size())) + checked +
           bigEndian(crc32(checked));
}

/// Signature and header of a PNG file of one bit of gray or, with `bits` 24, of three bytes a
/// pixel.
inline std::string pngHeader(std::uint32_t width, std::uint32_t height, int bits = 24) {
    const bool isGray = bits == 1;
    std::string header = bigEndian(width) + bigEndian(height);
    header += isGray ? '\x01' : '\x08';
    header += isGray ? '\x00' : '\x02';
    header += std::string(3, '\0');
    return "\x89PNG\r\n\x1a\n" + pngChunk("IHDR", header);
}

/// How many zero bytes a stream of zlib's repeats in 13 bytes of its own.
inline constexpr std::uint64_t zerosRepeated = 8 * 258;

/// Eight times "258 more of the same" in a stream of zlib's. Each takes 13 bits (1100 0101 for the
/// length, 00000 for the distance), so that eight take whole bytes. They are moved by three bits,
/// to leave room for `before`; what that moves out at the end are zeros, as is `before` of the
/// next.
inline std::string repeatedZeros(unsigned before) {
    std::string bytes(13, '\0');
    for (std::size_t match = 0; match < 8; ++match) {
        for (const std::size_t bit : {0U, 1U, 5U, 7U}) {
            const std::size_t at = 3 + match * 13 + bit;
            bytes[at / 8] = static_cast<char>(bytes[at / 8] | (1 << (at % 8)));
        }
    }
    bytes[0] = static_cast<char>(static_cast<unsigned char>(bytes[0]) | before);
    return bytes;
}

/// A whole black PNG file but for the end of its stream.
inline std::string blackPng(std::uint32_t width, std::uint32_t height, int bits) {
    constexpr std::uint64_t repetitionsInAChunk = 80'000;
    const std::uint64_t rowBytes = 1 + (std::uint64_t{width} * static_cast<unsigned>(bits) + 7) / 8;
    const std::uint64_t chunks = rowBytes * height / (zerosRepeated * repetitionsInAChunk) + 1;
    // The header of the stream, a block that holds one zero byte as it is, and the beginning of one
    // (the bits 010) that repeats it.
    std::string png =
        pngHeader(width, height, bits) +
        pngChunk("IDAT", std::string("\x78\x01\x00\x01\x00\xfe\xff\x00", 8) + repeatedZeros(0b010));
    std::string content;
    for (std::uint64_t repetition = 0; repetition < repetitionsInAChunk; ++repetition) {
        content += repeatedZeros(0);
    }
    const std::string chunk = pngChunk("IDAT", content);
    png.reserve(png.size() + chunk.size() * static_cast<std::size_t>(chunks) + 12);
    for (std::uint64_t number = 0; number < chunks; ++number) {
        png += chunk;
    }
    return png + pngChunk("IEND", "");
}

/// The beginning of a BMP file of three bytes a pixel.
inline std::string bmpHeader(std::uint32_t width, std::uint32_t height) {
    std::string header = "BM" + littleEndian(0) + littleEndian(0) + littleEndian(54) +
                         littleEndian(40) + littleEndian(width) + littleEndian(height);
    header += std::string("\x01\x00\x18\x00", 4);
    return header + std::string(24, '\0') + std::string(1000, 'x');
}

/// A GIF of two pixels, red and blue.
inline std::string twoPixelGif() {
    return std::string("GIF89a\x02\x00\x01\x00\x80\x00\x00", 13) +
           std::string("\xff\x00\x00\x00\x00\xff", 6) +
           std::string(",\x00\x00\x00\x00\x02\x00\x01\x00\x00", 10) +
           std::string("\x02\x02\x44\x0a\x00;", 6);
}

/// What EXIF calls an image whose left side is up in the scene.
inline constexpr char turnedToTheRight = 6;

/// A JPEG file with a mark that says how the camera was held.
inline std::string withOrientation(const std::string& jpeg, char orientation) {
    const std::string exif = std::string("Exif\0\0", 6) + std::string("II*\0\x08\0\0\0", 8) +
                             std::string("\x01\0\x12\x01\x03\0\x01\0\0\0", 10) + orientation +
                             std::string(7, '\0');
    const auto length = static_cast<std::uint32_t>(exif.size() + 2);
    return jpeg.substr(0, 2) + "\xff\xe1" + bigEndian(length).substr(2) + exif + jpeg.substr(2);
}

}  // namespace tarvin::imagebytes
