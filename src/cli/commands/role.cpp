#include "cli/commands/role.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "catalogue/bounds.h"
#include "cli/programming_run.h"
#include "settings/frmSimpleXMAP.h"

namespace quillmark {

namespace {

struct RoleOptions {
  RunOptions Run;
  std::string Address;
  std::string Baud = "9600";
  int Power = 30;                 // dBm
  bool Repeaters = false;         // of a master: there are some in its system
  int Xaddr = 0;                  // of a repeater
  std::vector<std::size_t> Xmap;  // of a sub-remote
  std::size_t Xpri = 1;
};

using ButtonOf = Button& (*)(frmOrvalent&);

// One role, and the options that it has beside those of all.
struct RoleName {
  const char* Name;
  const char* Help;
  ButtonOf Entry;
  const char* Title;     // of the box that asks for it,
  const char* Question;  // and what that begins with
  const char* Example;   // of its own options
};
constexpr RoleName roles[] = {
    {"master", "Make it a master", [](frmOrvalent& main) -> Button& { return main.cmdMaster; },
     "MASTER", "Program radio as MASTER...", " --repeaters"},
    {"remote", "Make it a remote", [](frmOrvalent& main) -> Button& { return main.cmdRemote; },
     "REMOTE", "Program radio as REMOTE...", " --power 27"},
    {"repeater", "Make it a repeater",
     [](frmOrvalent& main) -> Button& { return main.cmdRepeater; }, "REPEATER",
     "Program radio as REPEATER...", " --xaddr 1"},
    {"sub-remote", "Make it a remote that talks through a repeater",
     [](frmOrvalent& main) -> Button& { return main.cmdSubRemote; }, "REPEATER",
     "Program radio as a REMOTE", " --xmap 1,3 --xpri 1"},
};

void CheckBounds(const RoleOptions& options) {
  const Verdict verdict = Judge(SettingOf(SettingId::NetworkAddress), options.Address, {}, {});
  if (!verdict.Fine()) throw Failure{Exit::Usage, verdict.Sentence() + ". Nothing was sent."};
  if (options.Xmap.empty() || std::ranges::find(options.Xmap, options.Xpri) != options.Xmap.end()) {
    return;
  }
  throw Failure{Exit::Usage, "XPRI " + std::to_string(options.Xpri) + ": the map lacks it.",
                "\"--xpri\" names one of the addresses of \"--xmap\". Nothing was sent."};
}

void Enter(frmOrvalent& main, const RoleOptions& options) {
  main.cmbBaud.SetText(options.Baud);
  main.txtNewADDR.Text = options.Address;
  main.sldPwr.Value = options.Power;
}

void Tick(std::deque<CheckBox>& boxes, std::size_t index) {
  if (!boxes[index].Checked()) boxes[index].Click();
}

// A lost line closes the window at any point.
void GuideSubRemote(frmSimpleXMAP& window, const RoleOptions& options) {
  for (const std::size_t address : options.Xmap) Tick(window.chkXADDR, address);
  window.cmdSet.Click();
  if (!window.Loaded()) return;
  Tick(window.chkXADDR, options.Xpri);
  window.cmdSet.Click();
  if (window.Loaded()) window.Unload();
}

// What the roles ask while they run.
void ExpectFurther(Workbench& bench, const RoleOptions& options) {
  HeadlessDialogs& boxes = bench.Machine().Boxes;
  boxes.Expect("Repeater ?", "", options.Repeaters ? Answer::Yes : Answer::No);
  boxes.Expect("XADDR", "Are you sure", Answer::Yes);
  boxes.OnInput = [&options](const InputBox&) { return std::to_string(options.Xaddr); };
  bench.Machine().Shown.Expect("frmSimpleXMAP", [&options](Form& form) {
    GuideSubRemote(dynamic_cast<frmSimpleXMAP&>(form), options);
  });
}

Exit GiveRole(Workbench& bench, const RoleName& role, const RoleOptions& options) {
  CheckBounds(options);
  CheckMayAsk(options.Run);
  CliConsole& radio = bench.Radio();
  radio.ConnectAndRead();
  radio.CheckLoggedIn();
  Enter(radio.Main(), options);
  ExpectQuestion(bench, options.Run, role.Title, role.Question);
  ExpectFurther(bench, options);
  return RunOverwriting(bench, role.Entry(radio.Main()));
}

void AddFurther(CLI::App& command, const std::string& role, RoleOptions& options) {
  constexpr std::size_t highest = frmSimpleXMAP::AddressCount - 1;
  const auto address = CLI::Range(std::size_t{0}, highest);
  if (role == "master") {
    command.add_flag("--repeaters", options.Repeaters, "there are repeaters in its system");
  } else if (role == "repeater") {
    command.add_option("--xaddr", options.Xaddr, "its extension address, 0 to 31 (0)")
        ->check(address);
  } else if (role == "sub-remote") {
    command.add_option("--xmap", options.Xmap, "extension addresses that it may use, as in 1,3")
        ->type_name("N,N")
        ->delimiter(',')
        ->check(address)
        ->required();
    command.add_option("--xpri", options.Xpri, "the one of them that it tries first (1)")
        ->check(address);
  }
}

void AddOne(CLI::App& command, const RoleName& role, Action& chosen) {
  const auto options = std::make_shared<RoleOptions>();
  CLI::App* one = command.add_subcommand(role.Name, role.Help);
  one->add_option("--addr", options->Address, "the network's address")->required();
  one->add_option("--baud", options->Baud, "the rate of its port (9600)")
      ->check(CLI::IsMember(
          {"115200", "57600", "38400", "19200", "9600", "4800", "2400", "1200", "600", "300"}));
  one->add_option("--power", options->Power, "dBm, 20 to 30 (30)")->check(CLI::Range(20, 30));
  AddFurther(*one, role.Name, *options);
  one->add_flag("--yes", options->Run.Yes, "do not ask");
  one->footer(std::string("Example: quillmark role ") + role.Name + " --addr 1234" + role.Example);
  one->callback([&chosen, &role, options] {
    chosen = [&role, options](Workbench& bench) { return GiveRole(bench, role, *options); };
  });
}

}  // namespace

void AddRole(CLI::App& app, Action& chosen) {
  CLI::App* command = app.add_subcommand("role", "Clear the radio and give it a role");
  command->require_subcommand(1);
  for (const RoleName& role : roles) AddOne(*command, role, chosen);
}

}  // namespace quillmark
