#pragma once

#include <vector>

#include "figure.h"

namespace quillmark::bench {

class Surroundings;

// One function for each measurement, in a file of that name; main lists them. Each makes its own
// console and its own radio, and throws std::exception when it cannot measure.

std::vector<Figure> MeasureReadCycle(Surroundings& surroundings);
std::vector<Figure> MeasureConfigurations(Surroundings& surroundings);
std::vector<Figure> MeasureRestoreWindow(Surroundings& surroundings);
std::vector<Figure> MeasureWaking(Surroundings& surroundings);
std::vector<Figure> MeasureIdle(Surroundings& surroundings);
std::vector<Figure> MeasureUnplug(Surroundings& surroundings);
std::vector<Figure> MeasureStart(Surroundings& surroundings);
std::vector<Figure> MeasureTerminal(Surroundings& surroundings);
std::vector<Figure> MeasureFirmware(Surroundings& surroundings);
std::vector<Figure> MeasureZonePolling(Surroundings& surroundings);
std::vector<Figure> MeasureRadioHistory(Surroundings& surroundings);
std::vector<Figure> MeasureBatch(Surroundings& surroundings);
std::vector<Figure> MeasureTestSuite(Surroundings& surroundings);

// The name of the floor that Surroundings::IdleRate gives.
constexpr const char* idleFloorName = "console without a port";

}  // namespace quillmark::bench
