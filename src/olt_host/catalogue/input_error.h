// What is wrong with an input file, in one message that a person can act on:
// where, what is wrong, what was expected instead.
#ifndef OLT_HOST_CATALOGUE_INPUT_ERROR_H
#define OLT_HOST_CATALOGUE_INPUT_ERROR_H

#include <stdexcept>
#include <string>

namespace olt_host {

// A place in an input file. Lines count from 1; 0 stands for the whole file.
struct SourcePosition {
  std::string file;
  unsigned int line = 0;
};

// "FILE:LINE", or "FILE" for the whole file.
std::string ToText(const SourcePosition& position);

// Names `earlier` for a message about `here`: "line 12", with the file only
// when it is another one.
std::string RelativeText(const SourcePosition& earlier, const SourcePosition& here);

// `text` with control characters escaped, so that a message stays one line whatever the
// file holds.
std::string Escaped(const std::string& text);

// The same in double quotes, cut when long.
std::string Quoted(const std::string& text);

// Thrown by everything that reads or checks input files. what() is
// "FILE:LINE: problem; expected expectation".
class InputError : public std::runtime_error {
 public:
  InputError(const SourcePosition& position, const std::string& problem,
             const std::string& expectation);

  const SourcePosition& position() const { return _position; }
  // what() without the place.
  std::string rule() const;

 private:
  SourcePosition _position;
};

// A name that means nothing where it stands. Whoever collects errors tells the
// same one once, however often it stands there.
class UnknownNameError : public InputError {
 public:
  using InputError::InputError;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_INPUT_ERROR_H
