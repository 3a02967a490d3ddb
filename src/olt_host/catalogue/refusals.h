// The entries that a reader left out, and why.
#ifndef OLT_HOST_CATALOGUE_REFUSALS_H
#define OLT_HOST_CATALOGUE_REFUSALS_H

#include <cstddef>
#include <string>
#include <vector>

#include "catalogue/input_error.h"

namespace olt_host {

class Refusals {
 public:
  // Counts an entry, or a whole file. An unknown name that stands in many places
  // becomes one message.
  void Add(const InputError& error);

  std::size_t Count() const { return _count; }
  // In the order added: "FILE:LINE: problem; expected expectation", and how often
  // the same stands elsewhere.
  std::vector<std::string> Messages() const;

 private:
  struct Reason {
    std::string message;
    std::string rule;  // of an unknown name, else empty
    std::size_t more_places = 0;
  };

  std::size_t _count = 0;
  std::vector<Reason> _reasons;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_REFUSALS_H
