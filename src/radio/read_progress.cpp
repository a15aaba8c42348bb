#include "radio/read_progress.h"

#include <algorithm>
#include <chrono>
#include <string>

namespace quillmark {

ReadProgress::ReadProgress(EventLoop& loop, frmOrvalent& window, Connection& link,
                           const Conversation& conversation)
    : events(loop), main(window), connection(link), radio(conversation), began(loop.Now()) {
  events.StartTimer(*this, Seconds(1));
}

ReadProgress::~ReadProgress() {
  events.StopTimer(*this);
  main.NoAnswer.Drop();
  main.barRun.Visible = false;
  main.barRun.Doing = "";
}

void ReadProgress::Step(int place, int all) {
  main.barRun.Doing = "Reading";
  main.barRun.Max = all;
  main.barRun.Value = place;
  main.barRun.Visible = true;
}

void ReadProgress::Asked() {
  if (!radio.Open()) return;
  if (radio.HasBegun()) return main.NoAnswer.Drop();
  allAnswered = false;
  if (!main.NoAnswer.Visible()) told = events.Now();
  TellSilence();
}

void ReadProgress::Tick() {
  // A disconnect has taken the time away.
  if (main.Timer1.Enabled()) connection.ShowConnectTime();
  if (!main.NoAnswer.Visible()) return;
  const bool answered = radio.SilentFor() < events.Now() - told;
  if (answered || !radio.Open()) {
    main.NoAnswer.Drop();
  } else {
    TellSilence();
  }
}

void ReadProgress::TellSilence() {
  const Duration silent = std::min(radio.SilentFor(), events.Now() - began);
  const auto seconds = std::chrono::floor<std::chrono::seconds>(silent).count();
  main.NoAnswer.Tell("No answer for " + std::to_string(seconds) + " s. Disconnect stops the read.");
}

}  // namespace quillmark
