#include "diagnostics/frmRSSI.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int lowest = 50;  // of the bar
constexpr int highest = 120;
constexpr double barAtNoLevel = 170;  // the bar's value at 0 dBm
constexpr double valueFontSize = 24;
constexpr std::string_view reportWord = "RSSI ";
constexpr std::ptrdiff_t valueLength = 4;

}  // namespace

frmRSSI::frmRSSI(Platform& machine, frmOrvalent& window, Conversation& talk)
    : Form("frmRSSI"),
      Text1(*this, this, "Text1", "n/a"),
      ProgressBar1(*this, this, "ProgressBar1", lowest, highest, lowest),
      Label3(*this, this, "Label3", "-120 dBm"),
      Label8(*this, this, "Label8", "-110 dBm"),
      Label7(*this, this, "Label7", "-100 dBm"),
      Label6(*this, this, "Label6", "-90 dBm"),
      Label1(*this, this, "Label1", "-80 dBm"),
      Label5(*this, this, "Label5", "-70 dBm"),
      Label4(*this, this, "Label4", "-60 dBm"),
      Label2(*this, this, "Label2", "-50 dBm"),
      Command1(*this, this, "Command1", "OK"),
      Timer1(*this, "Timer1", machine.Events, 100, true),
      radio(talk),
      link(machine, window, talk) {
  Caption = "RSSI";
  Text1.FontSize = valueFontSize;
  Text1.MousePointer = Pointer::NoDrop;
  Timer1.OnTick = [this] { Timer1_Timer(); };
  Command1.OnClick = [this] { Unload(); };
  link.OnLost = [this] { Timer1.Enabled = false; };
  Form_Load();
}

void frmRSSI::Form_Load() {
  radio.Prime();
  link.Send("rssi", 0);
}

void frmRSSI::Form_Unload() {
  if (link.Open()) link.Send("");
}

void frmRSSI::Timer1_Timer() {
  if (!link.Open()) Timer1.Enabled = false;
  const std::string_view received = radio.Received();
  const std::size_t report = quillmark::Find(received, reportWord);
  // A "dBm" in front of it belongs to an earlier report.
  if (report == 0 || quillmark::Find(received, "dBm", report) == 0) return;
  const auto value = static_cast<std::ptrdiff_t>(report + reportWord.size());
  std::string level = Mid(received, value, valueLength).value_or("");
  radio.Prime();
  ShowLevel(std::move(level));
}

void frmRSSI::ShowLevel(std::string text) {
  const double level = std::clamp<double>(LeadingNumber(text) + barAtNoLevel, lowest, highest);
  ProgressBar1.Value = static_cast<int>(RoundHalfEven(level));
  Text1.Text = std::move(text);
}

}  // namespace quillmark
