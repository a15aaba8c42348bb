#include "cli/commands/ports.h"

#include <CLI/CLI.hpp>

#include "cli/json.h"
#include "cli/utf8.h"
#include "qt/serial/port_holder.h"
#include "qt/serial/port_trouble.h"

namespace quillmark {

namespace {

// A port, and what is known of it without opening it.
struct KnownPort {
  int Number = 0;
  PortDescription What;
  std::string Holder;  // "minicom (process 812)"; empty: nobody, as far as one sees
  std::optional<PortTrouble> Trouble{};  // nothing: it is worth a try
};

std::vector<KnownPort> KnownPorts(PortList& list) {
  std::vector<KnownPort> known;
  int number = 0;
  for (const PortDescription& port : list.Ports()) {
    ++number;
    if (port.Device.empty()) continue;
    KnownPort next{number, port, HolderOf(port.Device)};
    next.Trouble = TroubleBeforeOpening(port.Device);
    if (!next.Trouble && !next.Holder.empty()) next.Trouble = Busy(port.Device);
    known.push_back(std::move(next));
  }
  return known;
}

std::string JsonOf(const std::vector<KnownPort>& ports) {
  JsonArray list;
  for (const KnownPort& port : ports) {
    list.Add(JsonObject()
                 .Add("number", std::to_string(port.Number))
                 .Add("device", JsonText(port.What.Device))
                 .Add("adapter", JsonText(port.What.Adapter))
                 .Add("present", JsonBool(port.What.Present))
                 .Add("holder", port.Holder.empty() ? "null" : JsonText(port.Holder))
                 .Add("free", JsonBool(!port.Trouble))
                 .Add("cure", port.Trouble ? JsonText(OnOneRow(InTheseWords(port.Trouble->Details)))
                                           : "null")
                 .Text());
  }
  return JsonObject().Add("version", "1").Add("ports", list.Text()).Text();
}

Exit Ports(Workbench& bench) {
  const std::vector<KnownPort> ports = KnownPorts(bench.Machine().Platform.Ports);
  if (bench.Options.Json) {
    bench.Out.Line(JsonOf(ports));
  } else if (!ports.empty()) {
    std::vector<std::vector<std::string>> rows{{"Number", "Device", "Adapter", "Held by", "State"}};
    for (const KnownPort& port : ports) {
      const std::string state =
          port.Trouble ? OnOneRow(InTheseWords(port.Trouble->Details)) : "free";
      rows.push_back({std::to_string(port.Number), ToUtf8(port.What.Device),
                      ToUtf8(port.What.Adapter), ToUtf8(port.Holder), ToUtf8(state)});
    }
    bench.Out.Table(rows);
  }
  if (!ports.empty()) return Exit::Done;
  throw Failure{Exit::NoRadio, "This computer has no serial port.", "Plug in a serial adapter."};
}

}  // namespace

void AddPorts(CLI::App& app, Action& chosen) {
  app.add_subcommand("ports", "List the serial ports, and what keeps one from being used")
      ->callback([&chosen] { chosen = Ports; });
}

}  // namespace quillmark
