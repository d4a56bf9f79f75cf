#pragma once

#include <QByteArray>
#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// Image files as bytes, for what no encoder would write, or not fast enough.
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

/// The checksum of PNG chunks.
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

/// Signature and header of a PNG file with 1 bit of gray or, if `bits` is 24, 3 bytes a pixel.
inline std::string pngHeader(std::uint32_t width, std::uint32_t height, int bits = 24) {
    const bool isGray = bits == 1;
    std::string header = bigEndian(width) + bigEndian(height);
    header += isGray ? '\x01' : '\x08';
    header += isGray ? '\x00' : '\x02';
    header += std::string(3, '\0');
    return "\x89PNG\r\n\x1a\n" + pngChunk("IHDR", header);
}

/// The number of zero bytes that 13 bytes of a zlib stream repeat.
inline constexpr std::uint64_t zerosRepeated = 8 * 258;

/// Eight zlib matches of 258 bytes at distance 1. Each takes 13 bits (1100 0101 for the length,
/// 00000 for the distance), so that eight are whole bytes. They are shifted by three bits for
/// `before`; the bits shifted out at the end are zero, and so is `before` of the next group.
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

/// A black PNG file, complete except for the end of its zlib stream.
inline std::string blackPng(std::uint32_t width, std::uint32_t height, int bits) {
    constexpr std::uint64_t repetitionsInAChunk = 80'000;
    const std::uint64_t rowBytes = 1 + (std::uint64_t{width} * static_cast<unsigned>(bits) + 7) / 8;
    const std::uint64_t chunks = rowBytes * height / (zerosRepeated * repetitionsInAChunk) + 1;
    // The zlib header, a stored block with one zero byte, and the begin (bits 010) of a compressed
    // block that repeats it.
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

/// The header of a BMP file with 3 bytes a pixel, and 1,000 more bytes.
inline std::string bmpHeader(std::uint32_t width, std::uint32_t height) {
    std::string header = "BM" + littleEndian(0) + littleEndian(0) + littleEndian(54) +
                         littleEndian(40) + littleEndian(width) + littleEndian(height);
    header += std::string("\x01\x00\x18\x00", 4);
    return header + std::string(24, '\0') + std::string(1000, 'x');
}

/// A GIF with two pixels, red and blue.
inline std::string twoPixelGif() {
    return std::string("GIF89a\x02\x00\x01\x00\x80\x00\x00", 13) +
           std::string("\xff\x00\x00\x00\x00\xff", 6) +
           std::string(",\x00\x00\x00\x00\x02\x00\x01\x00\x00", 10) +
           std::string("\x02\x02\x44\x0a\x00;", 6);
}

/// The EXIF orientation of an image to be rotated by 90 degrees clockwise.
inline constexpr char turnedToTheRight = 6;

/// A JPEG file with an EXIF thumbnail.
inline std::string withThumbnail(const std::string& jpeg, const std::string& thumbnail) {
    const auto entry = [](const char* tag, std::uint32_t value) {
        return std::string(tag, 2) + std::string("\x04\0\x01\0\0\0", 6) + littleEndian(value);
    };
    // Two directories; the second has the compression, offset and length of the thumbnail.
    constexpr std::uint32_t begin = 8 + 2 + 12 + 4 + 2 + 3 * 12 + 4;
    const std::string exif = std::string("Exif\0\0", 6) + std::string("II*\0\x08\0\0\0", 8) +
                             std::string("\x01\0\x12\x01\x03\0\x01\0\0\0\x01\0\0\0", 14) +
                             littleEndian(26) + std::string("\x03\0", 2) + entry("\x03\x01", 6) +
                             entry("\x01\x02", begin) +
                             entry("\x02\x02", static_cast<std::uint32_t>(thumbnail.size())) +
                             littleEndian(0) + thumbnail;
    const auto length = static_cast<std::uint32_t>(exif.size() + 2);
    return jpeg.substr(0, 2) + "\xff\xe1" + bigEndian(length).substr(2) + exif + jpeg.substr(2);
}

/// A JPEG file with an EXIF orientation.
inline std::string withOrientation(const std::string& jpeg, char orientation) {
    const std::string exif = std::string("Exif\0\0", 6) + std::string("II*\0\x08\0\0\0", 8) +
                             std::string("\x01\0\x12\x01\x03\0\x01\0\0\0", 10) + orientation +
                             std::string(7, '\0');
    const auto length = static_cast<std::uint32_t>(exif.size() + 2);
    return jpeg.substr(0, 2) + "\xff\xe1" + bigEndian(length).substr(2) + exif + jpeg.substr(2);
}

/// A PNG file with 16 bits a channel: RGB, or RGBA if `pixel` has 8 bytes. All pixels are equal.
inline std::string deepPng(std::uint32_t width, std::uint32_t height, const std::string& pixel) {
    std::string header = bigEndian(width) + bigEndian(height) + '\x10';
    header += pixel.size() == 8 ? '\x06' : '\x02';
    header += std::string(3, '\0');
    QByteArray row(1, '\0');
    row += QByteArray::fromStdString(pixel).repeated(static_cast<qsizetype>(width));
    // qCompress() puts the length in front of the stream.
    const QByteArray stream = qCompress(row.repeated(static_cast<qsizetype>(height)), 1).mid(4);
    return "\x89PNG\r\n\x1a\n" + pngChunk("IHDR", header) + pngChunk("IDAT", stream.toStdString()) +
           pngChunk("IEND", "");
}

/// The photometric interpretation of a TIFF file: RGB or CMYK.
enum class TiffColors : std::uint8_t { light = 2, inks = 5 };

/// A TIFF file in one colour, `pixel`, with that many channels. It is small: all rows have the same
/// offset.
inline std::string flatTiff(std::uint32_t width, std::uint32_t height, TiffColors colors,
                            std::uint32_t channels, const std::string& pixel) {
    const auto bits = static_cast<std::uint32_t>(pixel.size() * 8 / channels);
    std::string row;
    for (std::uint32_t column = 0; column < width; ++column) {
        row += pixel;
    }
    const auto entry = [](std::uint32_t tag, char type, std::uint32_t count, std::uint32_t value) {
        return littleEndian(tag).substr(0, 2) + type + '\0' + littleEndian(count) +
               littleEndian(value);
    };
    constexpr char number = 4;
    constexpr std::uint32_t entries = 9;
    constexpr std::uint32_t bitsAt = 8 + 2 + entries * 12 + 4;
    const std::uint32_t placesAt = bitsAt + 2 * channels;
    const std::uint32_t lengthsAt = placesAt + 4 * height;
    const std::uint32_t rowAt = lengthsAt + 4 * height;
    std::string tiff =
        std::string("II*\0", 4) + littleEndian(8) + littleEndian(entries).substr(0, 2) +
        entry(256, number, 1, width) + entry(257, number, 1, height) +
        entry(258, 3, channels, bitsAt) + entry(259, number, 1, 1) +
        entry(262, number, 1, static_cast<std::uint32_t>(colors)) +
        entry(273, number, height, placesAt) + entry(277, number, 1, channels) +
        entry(278, number, 1, 1) + entry(279, number, height, lengthsAt) + littleEndian(0);
    for (std::uint32_t channel = 0; channel < channels; ++channel) {
        tiff += littleEndian(bits).substr(0, 2);
    }
    for (const std::uint32_t value : {rowAt, static_cast<std::uint32_t>(row.size())}) {
        for (std::uint32_t line = 0; line < height; ++line) {
            tiff += littleEndian(value);
        }
    }
    return tiff + row;
}

/// Writes bits with the byte stuffing of JPEG.
class JpegBits final {
 public:
    void add(std::uint32_t value, int count) {
        for (int bit = count - 1; bit >= 0; --bit) {
            byte_ = (byte_ << 1U) | ((value >> static_cast<unsigned>(bit)) & 1U);
            if (++filled_ == 8) {
                bytes_ += static_cast<char>(byte_);
                // 0xFF begins a marker unless a zero byte follows.
                bytes_ += byte_ == 0xFF ? std::string(1, '\0') : std::string();
                byte_ = 0;
                filled_ = 0;
            }
        }
    }
    [[nodiscard]] std::string bytes() {
        while (filled_ != 0) {
            add(1, 1);
        }
        return bytes_;
    }

 private:
    std::string bytes_;
    std::uint32_t byte_ = 0;
    int filled_ = 0;
};

/// A red progressive JPEG file without chroma subsampling: a decoder must keep all coefficients
/// until the last scan. It has only the first scan, which is enough for one colour.
inline std::string progressiveJpeg(std::uint32_t width, std::uint32_t height) {
    std::string jpeg("\xff\xd8\xff\xdb\0\x43\0", 7);
    jpeg += std::string(64, '\1');
    jpeg += std::string("\xff\xc2\0\x11\x08", 5) + bigEndian(height).substr(2) +
            bigEndian(width).substr(2) + std::string("\3\1\x11\0\2\x11\0\3\x11\0", 10);
    // Huffman codes for no difference and for differences of 9 and 10 bits: 0, 10 and 110.
    jpeg += std::string("\xff\xc4\0\x16\0\1\1\1", 8) + std::string(13, '\0') +
            std::string("\0\x09\x0a", 3);
    jpeg += std::string("\xff\xda\0\x0c\3\1\0\2\0\3\0\0\0\0", 14);
    JpegBits bits;
    // Red as Y, Cb and Cr, eight times the distance from 128: -416, -344, 1016.
    bits.add(0b10, 2);
    bits.add(511 - 416, 9);
    bits.add(0b10, 2);
    bits.add(511 - 344, 9);
    bits.add(0b110, 3);
    bits.add(1016, 10);
    const std::uint32_t blocks = ((width + 7) / 8) * ((height + 7) / 8);
    for (std::uint32_t block = 1; block < blocks; ++block) {
        bits.add(0, 3);
    }
    return jpeg + bits.bytes() + "\xff\xd9";
}

/// The image of progressiveJpeg() with 100,000 scans: small in the file and in memory, but decoding
/// takes longer than any test waits.
inline std::string endlessJpeg(std::uint32_t side) {
    constexpr int passes = 100'000;
    constexpr std::uint32_t blocksOfARun = 32'767;
    std::string jpeg = progressiveJpeg(side, side);
    jpeg.resize(jpeg.size() - 2);  // without its end
    // The only code, 0: a run of 16,384 blocks without differences, plus the number in the next 14
    // bits.
    jpeg += std::string("\xff\xc4\0\x14\x10\1", 6) + std::string(15, '\0') + '\xe0';
    JpegBits bits;
    const std::uint32_t blocks = ((side + 7) / 8) * ((side + 7) / 8);
    for (std::uint32_t block = 0; block < blocks; block += blocksOfARun) {
        bits.add(0x3FFF, 15);
    }
    const std::string pass = std::string("\xff\xda\0\x08\1\1\0\1\x3f\0", 10) + bits.bytes();
    for (int number = 0; number < passes; ++number) {
        jpeg += pass;
    }
    return jpeg + "\xff\xd9";
}

}  // namespace tarvin::imagebytes
