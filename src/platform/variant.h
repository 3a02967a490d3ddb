/// @file
/// The host's serialisation buffer: a sequence of 16-bit, 32-bit and byte-string
/// items, written at its end and read from a cursor in the same order.
///
/// One thread at a time; `Fetch` is const although it moves the read cursor.
#ifndef VARIANT_H
#define VARIANT_H

/// A buffer of items. The host defines its operations and what `_handle` points to;
/// nothing else may be added. Neither the byte order nor the form of an item is the
/// library's matter.
class __attribute__((visibility("default"))) Variant {
 public:
  /// Makes an empty buffer.
  Variant();
  /// Releases it with its items.
  ~Variant();

  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  /// @{
  /// Each call handles one item and returns 0 on success, anything else on
  /// failure (no room, or no such item left). `index` 0xFFFF is the next item in
  /// sequence, and the only one that the library asks for. `length` counts bytes; byte
  /// strings carry no terminator.
  unsigned int Append(unsigned short value, unsigned int index);
  unsigned int Append(unsigned int value, unsigned int index);
  unsigned int Append(char* bytes, unsigned int length, unsigned int index);
  unsigned int Fetch(unsigned short& value, unsigned int index) const;
  unsigned int Fetch(unsigned int& value, unsigned int index) const;
  unsigned int Fetch(char* bytes, unsigned int length, unsigned int index) const;
  /// @}

 private:
  [[maybe_unused]] void* _handle;  // the host's own
};

#endif  // VARIANT_H
