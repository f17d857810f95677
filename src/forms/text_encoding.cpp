#include "forms/text_encoding.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace koprax {

namespace {

std::uint8_t Byte(char c) { return static_cast<std::uint8_t>(c); }

/// The position of the first byte from `at` on that is no ASCII; whole words are looked at in one step.
std::size_t SkipAscii(std::string_view bytes, std::size_t at) {
  std::uint64_t word = 0;
  for (; at + sizeof word <= bytes.size(); at += sizeof word) {
    std::memcpy(&word, bytes.data() + at, sizeof word);
    if ((word & 0x8080808080808080U) != 0) break;
  }
  while (at < bytes.size() && Byte(bytes[at]) < 0x80) ++at;
  return at;
}

/// What a first byte says of its sequence: the length, 0 for none, and the range of the second byte, which
/// keeps out overlong forms, surrogates and what lies beyond the last code point.
struct SequenceRule {
  std::size_t Length = 0;
  std::uint8_t SecondFrom = 0x80;
  std::uint8_t SecondTo = 0xBF;
};

SequenceRule RuleOf(std::uint8_t first) {
  if (first >= 0xC2 && first <= 0xDF) return {.Length = 2};
  if (first == 0xE0) return {.Length = 3, .SecondFrom = 0xA0};
  if (first == 0xED) return {.Length = 3, .SecondTo = 0x9F};
  if (first >= 0xE1 && first <= 0xEF) return {.Length = 3};
  if (first == 0xF0) return {.Length = 4, .SecondFrom = 0x90};
  if (first >= 0xF1 && first <= 0xF3) return {.Length = 4};
  if (first == 0xF4) return {.Length = 4, .SecondTo = 0x8F};
  return {};
}

/// The length of the valid sequence at the start of the bytes, 0 if there is none.
std::size_t SequenceLength(std::string_view bytes) {
  const SequenceRule rule = RuleOf(Byte(bytes.front()));
  if (rule.Length == 0 || rule.Length > bytes.size()) return 0;
  if (Byte(bytes[1]) < rule.SecondFrom || Byte(bytes[1]) > rule.SecondTo) return 0;
  for (std::size_t i = 2; i < rule.Length; ++i) {
    if ((Byte(bytes[i]) & 0xC0U) != 0x80U) return 0;
  }
  return rule.Length;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  std::size_t at = SkipAscii(bytes, 0);
  while (at < bytes.size()) {
    const std::size_t length = SequenceLength(bytes.substr(at));
    if (length == 0) return false;
    at = SkipAscii(bytes, at + length);
  }
  return true;
}

std::string Latin1ToUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes) {
    if (Byte(byte) < 0x80) {
      text += byte;
    } else {
      text += static_cast<char>(0xC0U | (Byte(byte) >> 6U));
      text += static_cast<char>(0x80U | (Byte(byte) & 0x3FU));
    }
  }
  return text;
}

std::string Utf8ToLatin1(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::uint8_t first = Byte(text[at]);
    if (first < 0x80) {
      bytes += text[at];
      continue;
    }
    const std::size_t length = SequenceLength(text.substr(at));
    const bool fits = length == 2 && first <= 0xC3;
    bytes += fits ? static_cast<char>((first << 6U) | (Byte(text[at + 1]) & 0x3FU)) : '?';
    if (length > 1) at += length - 1;
  }
  return bytes;
}

}  // namespace koprax
