#include "qt/store_trouble_boxes.h"

#include <fstream>

#include "e2e/program_fixture.h"

namespace quillmark {
namespace {

using testing::ElementsAre;

TEST_F(Program, TellsOfADamagedPreferencesFileWhenTheMainWindowIsUp) {
  const auto file = IniPreferenceStore::UsualFile();
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << '\x01';
  machine.emplace();
  platform.emplace(machine->AsPlatform(machine->Boxes));
  console.emplace(*platform);
  const StoreTroubleBoxes troubles(machine->Store, machine->Shown, machine->Boxes, machine->Events);
  BoxAnswerer answerer;
  machine->Events.Deliver([this] { console->Start(); });
  const auto mainIsUp = [this] { return machine->Shown.WindowOf(console->Main()) != nullptr; };
  while (!mainIsUp()) {
    machine->Events.Wait(Milliseconds(10));
    ASSERT_TRUE(answerer.Texts.empty() || mainIsUp());
  }
  ASSERT_TRUE(Until([&] { return !answerer.Texts.empty(); }));
  // The same trouble again is no news; another kind is.
  std::ofstream(file) << '\x01';
  machine->Store.Reload();
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  machine->Store.Write("Preferences", "KeepAlive", "False");
  ASSERT_TRUE(Until([&] { return answerer.Texts.size() > 1; }));
  EXPECT_THAT(answerer.Texts, ElementsAre("The preferences file is damaged.",
                                          "The preferences file cannot be read."));
  EXPECT_EQ(answerer.Details.back().find("The file " + file.string() + " is there, but"), 0u);
}

}  // namespace
}  // namespace quillmark
