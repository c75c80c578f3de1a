// The measurements of the window, each of which prints its line.
#pragma once

#include <string>

namespace vintoral::bench {

/// Monotonic nanoseconds since the machine's start, the same in every process.
long long Nanoseconds();

/// A child of the start bench: shows an empty window or the station of `folder`, and prints when it was idle.
/// The first start of all stays until the sound library has taken stock of its plugins, once for this home.
int ShowEmpty(int argc, char** argv);
int ShowStation(int argc, char** argv, const std::string& folder, bool first);

/// Start to idle, the station's against an empty window's, medians of many.
void CompareStarts(const std::string& self, const std::string& folder);

/// The same with a camera on the network that takes the connection and never answers, against without.
void CompareStartsWithCamera(const std::string& self, const std::string& folder);

/// A child of the cameras' bench, which prints the figure of that name.
int CameraFigure(int argc, char** argv, const std::string& what);

/// The processor time of a live picture against GStreamer's for the same frames, what a running camera takes
/// of the memory, a still, and the start with a camera that does not answer.
void MeasureCameras(const std::string& self, const std::string& folder);

/// A key in a field to its repaint, with 1000 fichas inside.
void MeasureKeys(int argc, char** argv, const std::string& folder);

/// A child of the bench: codes of those who are inside in the station of `folder`, read by a reader, to the
/// ficha on display.
int ScanTimes(int argc, char** argv, const std::string& folder);

/// A child of the bench: the dialog of the articles, from its key to painted pixels.
int ArticleTimes(int argc, char** argv, const std::string& folder);

/// A child of the bench: repaints of the window of the station of `folder` while its thread waits in a folder
/// that hangs.
int HangTimes(int argc, char** argv, const std::string& folder);

/// What the station of `folder` takes of the processor in a minute in which nothing happens.
int IdleMinute(int argc, char** argv, const std::string& folder);

/// The children of the grid's bench, at the size that the arguments 3 and 4 say.
int GridTimes(int argc, char** argv, const std::string& folder);
int GridMemory(int argc, char** argv, const std::string& folder);

/// Keys at any moment of pages that fill, in the station of `folder`, whose data lie on a slow share with two
/// pages of photos.
int SlowPages(int argc, char** argv, const std::string& folder);

/// What printing a slip takes of the calling thread, 99th percentile, and the list of printers at most; in
/// milliseconds, whatever the spooler of the environment does.
int PrintTimes(int argc, char** argv, const std::string& folder);

/// A child of the alerts' bench: F12 in the station of `folder` to the first byte that a relay on this
/// machine gets, or what a key takes while that relay says nothing; prints milliseconds.
int AlertTime(int argc, char** argv, const std::string& folder);
int KeyDuringAlert(int argc, char** argv, const std::string& folder);
void MeasureAlerts(const std::string& self, const std::string& folder);

/// A page of photos against libjpeg-turbo, the pointer from cell to cell, and what the photos take.
void MeasureGrid(const std::string& self, const std::string& folder);

}  // namespace vintoral::bench
