#include "state/state_frame.h"

#include <sha2.h>

#include "state/byte_stream.h"
#include "state/state_file.h"

namespace olt_host {

namespace {

constexpr std::size_t kSectionNameBytes = 4;
constexpr std::size_t kSectionHeaderBytes = kSectionNameBytes + 8;
constexpr std::size_t kChecksumBytes = SHA256_DIGEST_LENGTH;

std::string Checksum(std::string_view bytes) {
  SHA2_CTX context;
  SHA256Init(&context);
  SHA256Update(&context, reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  std::uint8_t digest[kChecksumBytes];
  SHA256Final(digest, &context);
  return std::string(reinterpret_cast<const char*>(digest), sizeof(digest));
}

}  // namespace

std::string FrameSections(const std::vector<StateSection>& sections) {
  std::uint64_t length = kStateHeaderBytes + kChecksumBytes;
  for (const StateSection& section : sections) {
    length += kSectionHeaderBytes + section.bytes.size();
  }
  ByteWriter writer;
  writer.Bytes(kStateMagic);
  writer.Number32(kStateVersion);
  writer.Number64(length);
  for (const StateSection& section : sections) {
    writer.Bytes(section.name);
    writer.Number64(section.bytes.size());
    writer.Bytes(section.bytes);
  }
  return writer.bytes() + Checksum(writer.bytes());
}

void CheckStateHeader(std::string_view header, std::uint64_t file_bytes) {
  if (header.empty()) throw StateError("is empty; expected a file that save wrote");
  if (header.substr(0, kStateMagic.size()) != kStateMagic.substr(0, header.size())) {
    throw StateError("is no state file; expected a file that save wrote");
  }
  const std::string cut =
      "is cut short: it has " + std::to_string(file_bytes) + " bytes; expected ";
  if (header.size() < kStateHeaderBytes) {
    throw StateError(cut + "at least " + std::to_string(kStateHeaderBytes + kChecksumBytes));
  }
  ByteReader reader(header.substr(kStateMagic.size()), "the header");
  const std::uint32_t version = reader.Number32();
  if (version > kStateVersion) {
    throw StateError("was written by a newer olt_host (format " + std::to_string(version) +
                     "; this one reads up to " + std::to_string(kStateVersion) + ")");
  }
  if (version == 0) throw StateError("is damaged: it claims to have format 0; expected 1");
  const std::uint64_t length = reader.Number64();
  if (file_bytes < length) throw StateError(cut + std::to_string(length));
  if (file_bytes > length || length < kStateHeaderBytes + kChecksumBytes) {
    throw StateError("is damaged: it has " + std::to_string(file_bytes) + " bytes; expected " +
                     std::to_string(length) + " by its header");
  }
}

std::vector<StateSection> UnframeSections(std::string_view content) {
  CheckStateHeader(content.substr(0, kStateHeaderBytes), content.size());
  const std::string_view checked = content.substr(0, content.size() - kChecksumBytes);
  if (content.substr(checked.size()) != Checksum(checked)) {
    throw StateError("is damaged: its checksum does not fit its content");
  }
  std::vector<StateSection> sections;
  ByteReader reader(checked.substr(kStateHeaderBytes), "the list of sections");
  while (reader.unread() > 0) {
    StateSection section;
    section.name = reader.Bytes(kSectionNameBytes);
    section.bytes = reader.Bytes(reader.Number64());
    sections.push_back(std::move(section));
  }
  return sections;
}

}  // namespace olt_host
