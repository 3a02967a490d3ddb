// Opening of YAML files.
#ifndef OLT_HOST_CATALOGUE_YAML_DOCUMENT_H
#define OLT_HOST_CATALOGUE_YAML_DOCUMENT_H

#include <string>

#include "catalogue/yaml_view.h"

namespace olt_host {

// Reads a file that holds one YAML document; its root is called `name` in
// messages. Throws InputError when the file cannot be read or is not that.
YamlView OpenYaml(const std::string& file, const std::string& name);

// The two halves of it, for who also needs the bytes.
std::string ReadYaml(const std::string& file);
YamlView ParseYaml(const std::string& file, const std::string& text, const std::string& name);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_YAML_DOCUMENT_H
