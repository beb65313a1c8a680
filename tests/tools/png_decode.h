// A minimal PNG decoder for the browser tests: 8-bit grey, RGB or RGBA
// images without interlacing, the kind a browser's screenshot is. zlib
// (which protobuf already needs) inflates the data.
#ifndef TESTS_TOOLS_PNG_DECODE_H_
#define TESTS_TOOLS_PNG_DECODE_H_

#include <zlib.h>

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace q3a_test {

struct Image {
  std::uint32_t width = 0, height = 0;
  std::vector<std::uint32_t> rgb;  // 0xRRGGBB per pixel, row after row
};

inline std::uint32_t BigEndian32(const std::string& s, std::size_t at) {
  return (std::uint32_t{static_cast<std::uint8_t>(s[at])} << 24) |
         (std::uint32_t{static_cast<std::uint8_t>(s[at + 1])} << 16) |
         (std::uint32_t{static_cast<std::uint8_t>(s[at + 2])} << 8) |
         std::uint32_t{static_cast<std::uint8_t>(s[at + 3])};
}

// nullopt for anything but the kinds above.
inline std::optional<Image> DecodePng(const std::string& file) {
  if (file.size() < 8 || file.compare(0, 8, "\x89PNG\r\n\x1a\n") != 0) {
    return std::nullopt;
  }
  Image image;
  int channels = 0;
  std::string data;
  for (std::size_t at = 8; at + 12 <= file.size();) {
    const std::uint32_t length = BigEndian32(file, at);
    const std::string type = file.substr(at + 4, 4);
    if (at + 12 + length > file.size()) return std::nullopt;
    const std::string body = file.substr(at + 8, length);
    if (type == "IHDR") {
      image.width = BigEndian32(body, 0);
      image.height = BigEndian32(body, 4);
      const int depth = body[8], colour = body[9], interlace = body[12];
      channels = colour == 0 ? 1 : colour == 2 ? 3 : colour == 6 ? 4 : 0;
      if (depth != 8 || channels == 0 || interlace != 0) return std::nullopt;
    } else if (type == "IDAT") {
      data += body;
    } else if (type == "IEND") {
      break;
    }
    at += 12 + length;
  }
  const std::size_t stride = std::size_t{image.width} * channels;
  std::vector<std::uint8_t> raw((stride + 1) * image.height);
  uLongf raw_size = raw.size();
  if (channels == 0 ||
      uncompress(raw.data(), &raw_size,
                 reinterpret_cast<const Bytef*>(data.data()), data.size()) !=
          Z_OK ||
      raw_size != raw.size()) {
    return std::nullopt;
  }
  std::vector<std::uint8_t> previous(stride, 0), row(stride);
  image.rgb.reserve(std::size_t{image.width} * image.height);
  for (std::uint32_t y = 0; y < image.height; ++y) {
    const std::uint8_t* in = &raw[y * (stride + 1)];
    const int filter = in[0];
    for (std::size_t i = 0; i < stride; ++i) {
      const int a = i >= static_cast<std::size_t>(channels) ? row[i - channels] : 0;
      const int b = previous[i];
      const int c =
          i >= static_cast<std::size_t>(channels) ? previous[i - channels] : 0;
      int predictor = 0;
      switch (filter) {
        case 1: predictor = a; break;
        case 2: predictor = b; break;
        case 3: predictor = (a + b) / 2; break;
        case 4: {
          const int p = a + b - c;
          const int pa = std::abs(p - a), pb = std::abs(p - b),
                    pc = std::abs(p - c);
          predictor = pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
          break;
        }
        default: break;
      }
      row[i] = static_cast<std::uint8_t>(in[1 + i] + predictor);
    }
    for (std::uint32_t x = 0; x < image.width; ++x) {
      const std::uint8_t* p = &row[x * channels];
      image.rgb.push_back(channels == 1
                              ? (p[0] * 0x010101u)
                              : (std::uint32_t{p[0]} << 16) | (p[1] << 8) | p[2]);
    }
    previous = row;
  }
  return image;
}

}  // namespace q3a_test

#endif  // TESTS_TOOLS_PNG_DECODE_H_
