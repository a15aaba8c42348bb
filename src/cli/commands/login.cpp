#include "cli/commands/login.h"

#include <CLI/CLI.hpp>
#include <charconv>

#include "access/frmLogin.h"
#include "cli/line_input.h"
#include "text/text.h"

namespace quillmark {

namespace {

// The window that takes the secret, and what it is called.
struct Secret {
  const char* Prompt;
  const char* Refusal;  // of the radio, in the window's box
  const char* Failed;
  const char* Cure;
};
constexpr Secret password{"Password of the radio: ", "Invalid Password",
                          "The radio has refused the password.", "Try it again."};
constexpr Secret encryption{"Encryption code of the radio, 1 to 255 or none: ",
                            "Invalid Encryption Code", "The radio has refused the code.", ""};

void AddSource(CLI::App& command, SecretSource& source) {
  auto* descriptor = command.add_option("--secret-fd", source.Descriptor,
                                        "read it from this open file descriptor");
  descriptor->type_name("N")->check(CLI::NonNegativeNumber);
  command.add_option("--secret-file", source.File, "read it from the first line of this file")
      ->type_name("FILE")
      ->excludes(descriptor);
}

bool IsCode(const std::string& text) {
  int code = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code);
  return error == std::errc() && end == text.data() + text.size() && code >= 1 && code <= 255;
}

void CheckPassword(const std::string& text) {
  constexpr std::size_t longest = 4;
  const bool plain = std::ranges::all_of(text, [](char c) { return c > ' ' && c < 127; });
  if (!text.empty() && text.size() <= longest && plain) return;
  throw Failure{Exit::Usage, "A password has 1 to 4 characters without blanks. Nothing was sent.",
                " "};
}

// Types the text into the window and clicks; an empty one clicks "Use None".
void Enter(frmLogin& window, const std::string& text) {
  if (text.empty()) {
    window.NoneButton.Click();
  } else {
    window.txtPassword.UserEdit(text);
    window.cmdOK.Click();
  }
  if (window.Loaded()) window.cmdCancel.Click();
  if (window.Loaded()) window.Unload();
}

void Give(Workbench& bench, const Secret& kind, Clickable& entry, const std::string& text) {
  CliMachine& machine = bench.Machine();
  const auto refused = std::make_shared<bool>(false);
  machine.Boxes.Expect("Login", kind.Refusal, [refused](const MessageBox&) {
    *refused = true;
    return Answer::Ok;
  });
  machine.Boxes.Expect("Error!", "not currently logged in", [refused](const MessageBox&) {
    *refused = true;
    return Answer::Ok;
  });
  machine.Shown.Expect("frmLogin",
                       [&text](Form& form) { Enter(dynamic_cast<frmLogin&>(form), text); });
  bench.Radio().Click(entry);
  if (*refused) throw Failure{Exit::Denied, kind.Failed, kind.Cure};
  bench.Radio().CheckBoxes();
}

Exit Login(Workbench& bench, const SecretSource& source) {
  std::string secret = ReadSecret(bench.Machine(), source, password.Prompt);
  CheckPassword(secret);
  bench.Radio().Connect();
  Give(bench, password, bench.Radio().Main().tbr_Login, secret);
  secret.assign(secret.size(), ' ');
  return Exit::Done;
}

Exit Code(Workbench& bench, const SecretSource& source) {
  std::string secret = ReadSecret(bench.Machine(), source, encryption.Prompt);
  const bool none = EqualAnyCase(secret, "none");
  if (!none && !IsCode(secret)) {
    throw Failure{Exit::Usage, "An encryption code is 1 to 255, or none. Nothing was sent.", " "};
  }
  bench.Radio().Connect();
  Give(bench, encryption, bench.Radio().Main().mnuEncryptCode, none ? "" : secret);
  secret.assign(secret.size(), ' ');
  return Exit::Done;
}

// As the main window does at its end.
Exit Logout(Workbench& bench) {
  bench.Radio().Connect();
  bench.Radio().End(true);
  return Exit::Done;
}

template <Exit (*run)(Workbench&, const SecretSource&)>
void AddSecretCommand(CLI::App& app, Action& chosen, const char* name, const char* help) {
  const auto source = std::make_shared<SecretSource>();
  CLI::App* command = app.add_subcommand(name, help);
  AddSource(*command, *source);
  command->callback(
      [&chosen, source] { chosen = [source](Workbench& bench) { return run(bench, *source); }; });
}

}  // namespace

void AddLogin(CLI::App& app, Action& chosen) {
  AddSecretCommand<Login>(app, chosen, "login", "Log in to the radio; asks for its password");
}

void AddLogout(CLI::App& app, Action& chosen) {
  app.add_subcommand("logout", "Log out from the radio")->callback([&chosen] { chosen = Logout; });
}

void AddCode(CLI::App& app, Action& chosen) {
  AddSecretCommand<Code>(app, chosen, "code", "Set the radio's encryption code; asks for it");
}

}  // namespace quillmark
