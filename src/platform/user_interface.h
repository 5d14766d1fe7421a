#pragma once

#include <cstddef>
#include <string>

namespace platform {

// Message box styles, as the Windows constants.
inline constexpr int kCriticalIcon = 16;
inline constexpr int kExclamationIcon = 48;
inline constexpr int kYesNo = 4;

// Screen pointer codes, as the classic form toolkit numbered them.
inline constexpr int kDefaultPointer = 0;
inline constexpr int kArrowPointer = 1;
inline constexpr int kCrossPointer = 2;
inline constexpr int kIBeamPointer = 3;
inline constexpr int kSizeAllPointer = 5;
inline constexpr int kSizeNeSwPointer = 6;
inline constexpr int kSizeNsPointer = 7;
inline constexpr int kSizeNwSePointer = 8;
inline constexpr int kSizeWePointer = 9;
inline constexpr int kUpArrowPointer = 10;
inline constexpr int kHourglassPointer = 11;
inline constexpr int kNoDropPointer = 12;
inline constexpr int kArrowHourglassPointer = 13;
inline constexpr int kArrowQuestionPointer = 14;
inline constexpr int kSizeAll2Pointer = 15;
inline constexpr int kCustomPointer = 99;

// Open-file dialog flags, with the Windows values.
inline constexpr unsigned kOfnHideReadOnly = 0x4;
inline constexpr unsigned kOfnAllowMultiSelect = 0x200;
inline constexpr unsigned kOfnFileMustExist = 0x1000;
inline constexpr unsigned kOfnExplorer = 0x80000;
inline constexpr unsigned kOfnLongNames = 0x200000;
inline constexpr unsigned kOfnDontAddToRecent = 0x2000000;

// What the open-file dialog is asked to show.
struct OpenFileRequest {
  // Pairs of description and pattern list (patterns separated by ";"), each part ended by a
  // NUL; an empty part, or the end of the text, closes the list.
  std::string filter;
  int filter_index = 1;  // from 1
  std::string initial_folder;
  std::string title;
  unsigned flags = 0;
  // How many characters the answer may have; a longer selection makes the dialog fail.
  std::size_t buffer_size = 0;
};

// A rectangle of the screen in pixels.
struct ScreenRect {
  int left = 0, top = 0, right = 0, bottom = 0;
};

// What the core asks of whichever front end shows the program.
class UserInterface {
 public:
  virtual ~UserInterface() = default;
  virtual void MessageBox(const std::string& text, int style, const std::string& title) = 0;
  // A modal Yes/No question; true when the user answers Yes.
  virtual bool AskYesNo(const std::string& text, int style, const std::string& title) = 0;
  virtual void Beep() = 0;

  // The pointer the whole screen shows, by code; kDefaultPointer lets each control choose.
  virtual int MousePointer() const = 0;
  virtual void SetMousePointer(int code) = 0;

  // Shows a modal open-file dialog. False when cancelled or failed. Otherwise answer holds one
  // full path, or, for several files, the folder followed by each name, every part ended by a
  // NUL and the whole by a second NUL: the form the Windows dialog fills its buffer with.
  virtual bool GetOpenFileName(const OpenFileRequest& request, std::string& answer) = 0;

  // The screen's twips per pixel: 1440 divided by its logical dots per inch.
  virtual double TwipsPerPixelX() const = 0;
  virtual double TwipsPerPixelY() const = 0;

  // The desktop without its panels, in pixels.
  virtual ScreenRect WorkArea() const = 0;

  // The name of the program's window that is the desktop's foreground window; empty when the
  // foreground belongs to another program or to none.
  virtual std::string ForegroundWindowName() const = 0;
};

}  // namespace platform
