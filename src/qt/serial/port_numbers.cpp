#include "qt/serial/port_numbers.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>

#include "qt/serial/port_trouble.h"
#include "qt/store/ini_preference_store.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

constexpr const char* portsSection = "Ports";
constexpr const char* seenSection = "PortsSeen";
// A present port's mark is renewed no more often than this, so that looking rarely writes.
constexpr std::int64_t seenGrain = 3600;  // s

std::string KeyOf(std::size_t index) { return "Com" + std::to_string(index + 1); }

std::string PersistentName(const std::string& device) {
  const QDir byId(QStringLiteral("/dev/serial/by-id"));
  for (const QString& name : byId.entryList(QDir::System | QDir::Files, QDir::Name)) {
    std::string link = byId.filePath(name).toStdString();
    if (RealDevice(link) == device) return link;
  }
  return device;
}

}  // namespace

std::vector<FoundPort> FindPorts() {
  std::vector<FoundPort> found;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
    const std::string device = port.systemLocation().toStdString();
    found.push_back(
        {device, PersistentName(device), FromQt(port.description()), port.hasVendorIdentifier()});
  }
  return found;
}

PortNumbers::PortNumbers(IniPreferenceStore& preferences, Surroundings around)
    : store(preferences), surroundings(std::move(around)) {}

void PortNumbers::Load() {
  store.Reload();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    Entry& entry = entries[i];
    entry = {};
    entry.Path = store.ReadPath(portsSection, KeyOf(i));
    entry.Seen = std::atoll(store.ReadPath(seenSection, KeyOf(i)).c_str());
    entry.Present = !entry.Path.empty() && surroundings.Exists(entry.Path);
  }
}

PortNumbers::Entry* PortNumbers::Holder(const FoundPort& port) {
  const auto same = [&](const Entry& entry) {
    if (entry.Path.empty()) return false;
    return entry.Path == port.Persistent || entry.Path == port.Device ||
           (entry.Present && RealDevice(entry.Path) == port.Device);
  };
  const auto found = std::find_if(entries.begin(), entries.end(), same);
  return found == entries.end() ? nullptr : &*found;
}

// The lowest that has no path, else the one absent longest; null when all are present or in use.
PortNumbers::Entry* PortNumbers::FreeEntry() {
  Entry* oldest = nullptr;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    Entry& entry = entries[i];
    if (entry.Path.empty()) return &entry;
    if (entry.Present || surroundings.InUse(static_cast<int>(i) + 1)) continue;
    if (oldest == nullptr || entry.Seen < oldest->Seen) oldest = &entry;
  }
  return oldest;
}

void PortNumbers::Look() {
  Load();
  std::vector<FoundPort> found = surroundings.Find();
  std::sort(found.begin(), found.end(), [](const FoundPort& left, const FoundPort& right) {
    return left.Usb != right.Usb ? left.Usb : left.Device < right.Device;
  });
  std::vector<FoundPort> unknown;
  for (const FoundPort& port : found) {
    if (Entry* holder = Holder(port)) {
      holder->Present = true;
      holder->Adapter = port.Adapter;
    } else {
      unknown.push_back(port);
    }
  }
  for (const FoundPort& port : unknown) {
    Entry* entry = FreeEntry();
    if (entry == nullptr) break;
    *entry = {port.Persistent, 0, true, port.Adapter};
  }
  Store();
}

void PortNumbers::Store() {
  std::vector<IniPreferenceStore::Entry> changes;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    Entry& entry = entries[i];
    const std::string key = KeyOf(i);
    if (entry.Path != store.ReadPath(portsSection, key)) {
      changes.push_back({portsSection, key, entry.Path});
    }
    if (!entry.Present || surroundings.Now() - entry.Seen < seenGrain) continue;
    entry.Seen = surroundings.Now();
    changes.push_back({seenSection, key, std::to_string(entry.Seen)});
  }
  if (!changes.empty()) store.WritePaths(changes);
}

std::vector<PortDescription> PortNumbers::Ports() {
  Look();
  std::vector<PortDescription> ports;
  for (const Entry& entry : entries) {
    const std::string device = entry.Present ? RealDevice(entry.Path) : entry.Path;
    ports.push_back({FromQt(QString::fromStdString(device)), entry.Adapter, entry.Present});
  }
  return ports;
}

// Opening the port has read the path, or there was none.
bool PortNumbers::Present(int number) {
  if (number < 1 || number > Count) return false;
  const std::string& path = entries[static_cast<std::size_t>(number - 1)].Path;
  return !path.empty() && surroundings.Exists(path);
}

std::string PortNumbers::DeviceOf(int number) {
  if (number < 1 || number > Count) return {};
  const auto index = static_cast<std::size_t>(number - 1);
  Load();
  if (entries[index].Path.empty()) Look();
  return entries[index].Path;
}

int PortNumbers::NumberFor(const std::string& device) {
  Look();
  const FoundPort port{RealDevice(device), device, {}, false};
  Entry* entry = Holder(port);
  if (entry == nullptr) {
    entry = FreeEntry();
    // All sixteen ports are present: the one that the user names takes the place of the last.
    if (entry == nullptr) entry = &entries.back();
    *entry = {device, 0, surroundings.Exists(device), {}};
    Store();
  }
  return static_cast<int>(entry - entries.data()) + 1;
}

}  // namespace quillmark
