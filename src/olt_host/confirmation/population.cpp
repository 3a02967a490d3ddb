#include "confirmation/population.h"

#include <utility>

namespace olt_host {

namespace {

std::uint32_t IndexKey(std::uint16_t place, std::uint8_t onu) {
  return (static_cast<std::uint32_t>(place) << 8U) | onu;
}

}  // namespace

Population::Population(Reports reports) : _reports(std::move(reports)) {
  _index.reserve(_reports.onus.size());
  for (std::size_t i = 0; i < _reports.onus.size(); ++i) {
    _index.emplace(IndexKey(_reports.onus[i].place, _reports.onus[i].onu), i);
  }
}

const OnuReport* Population::Find(std::uint16_t place, std::uint8_t onu) const {
  const auto found = _index.find(IndexKey(place, onu));
  return found == _index.end() ? nullptr : &_reports.onus[found->second];
}

const IdentifySettings& Population::Settings(std::uint16_t place) const {
  const auto found = _reports.settings.find(place);
  return found == _reports.settings.end() ? _reports.default_settings : found->second;
}

}  // namespace olt_host
