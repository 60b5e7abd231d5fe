#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "values/bounded.h"
#include "values/fixed.h"
#include "values/int16.h"

namespace korvinel {

/// A command that reads a data file.
enum class FileCommand { none, open, replay };

/// The main window's record. It lives as long as the window; its operations take no arguments and return nothing.
/// Channels 1..4 are F1, F2, T5, T6; pairs 1..4 are F1-F2, T5-T6, F1-T5, F2-T6. Row 0 of channels and pairs is unused.
/// Everything runs on the user-interface thread: a wait pumps events, so the flags are read again after it.
struct MainState {
  MainState(MainWindow& mainWindow, ProgramValues& programValues, platform::Platform& theHost)
      : window(mainWindow), shared(programValues), host(theHost) {}

  MainWindow& window;
  ProgramValues& shared;
  platform::Platform& host;

  // --- Fields ------------------------------------------------------------------------------------------------------

  // The current block: written by device/, recording/ (from a file) and analysis/
  Bounded<float, 4, 258>
      sampleBlock;  ///< [channel][sample 1..256], sample units, mid level 128; columns 0, 257: edge copies
  Int16 samplesPerBlock = 256;
  Int16 fftHalf = 128;       ///< half a block: spectrum indexes 1..fftHalf are kept
  Int16 displayedBins = 64;  ///< spectrum indexes drawn as bars and in the coherence graph
  Int16 blockCount = 0;      ///< number of the current block, from 1

  // Start-up: written by frame/
  Bounded<float, 130> binCalibration;  ///< factor of spectrum index 1..128; 0, 129 and 130 stay 0
  Int16 serialPort = 0;                ///< 1 = first port
  platform::Colour startButtonColour = platform::Colour::buttonFace;  ///< restores the record button

  // Program state: flags, 0 or 1
  Int16 acquisitionRunning = 0;  ///< blocks are being acquired, or a file is being scanned
  Int16 stopRequested = 0;       ///< Stop was pressed, or the block limit reached
  Int16 endRequested = 0;        ///< the end of the program was asked for while acquiring
  Int16 intervalSelectable = 0;  ///< a finished acquisition or a scanned file is in memory
  Int16 recordingActive = 0;
  Int16 recordingArmed = 0;
  Int16 replayActive = 0;
  Int16 printRequested = 0;
  Int16 fileNameExists = 0;  ///< the typed data file name is taken
  Int16 linkPending = 0;     ///< the handshake is under way
  Int16 turnRunning = 0;     ///< a turn of the acquisition is under way, its end included

  // Texts
  std::string recordingDate;                          ///< "dd/mm/yyyy"; of an opened file with a trailing blank
  std::string headerText1, headerText2, headerText3;  ///< lines of a notice
  std::string messageText1, messageText2, messageText3, messageText4, messageText5;  ///< lines of a message

  // Device link: written by device/
  std::string commandText;     ///< the command being built and sent, as bytes
  Int16 commandChecksum = 0;   ///< running byte sum of the command
  Int16 linkReady = 0;         ///< 1 once the instrument has answered
  Int16 sharedSelector = 0;    ///< seconds to wait in the handshake; the pair (1, 2) shown for rejected blocks
  double timerMark = 0;        ///< start of the running wait or turn, seconds
  double readStartTime = 0;    ///< start of the wait for a block, seconds
  int messageAnswer = 0;       ///< last OK/Cancel box: 1 = OK, 2 = Cancel
  int streamPosition = 0;      ///< byte inside the received block, from 1
  Int16 streamStopped = 1;     ///< no start command has been sent since the last stop or handshake
  Int16 framesCut = 0;         ///< 1: at a stop the instrument, or the line, has left a frame unfinished
  std::string lineFault;       ///< why the port could not be opened or its line has failed; "" = it works
  std::string alignmentFault;  ///< why the stream had to be restarted to find its frames; "" = never since Start

  // Acquisition and artefacts: written by device/
  Int16 artefactFlag = 0;         ///< 1: the block just read was rejected, or there was none
  Int16 artefactThreshold = 130;  ///< allowed excursion from the mid level 128, sample units, 70..130
  Fixed pauseInterval;            ///< milliseconds until the next block is asked for
  Int16 channelPair = 1;          ///< shown on the traces: 1 = channels 1, 2; 2 = channels 3, 4
  Int16 pairToggleCount = 0;      ///< presses of the channel button since Start
  std::string pairLabel1, pairLabel2;
  Int16 lineX1 = 0, lineX2 = 0, lineY1 = 0, lineY2 = 0;  ///< the trace segment being drawn, trace units

  // Spectra: written by analysis/
  Int16 channelIndex = 0;                         ///< the channel being processed, 1..4
  Bounded<Fixed, 258> fftRe, fftIm;               ///< the transform of one channel, index 1..256
  Bounded<Fixed, 4, 130> shapeSpectrum;           ///< [channel][index 1..128], magnitude with its largest at 150
  Bounded<Fixed, 4, 258> spectrumRe, spectrumIm;  ///< [channel][index 1..256]
  Fixed blockDeviation;                        ///< mean absolute deviation of the last channel processed, sample units
  Bounded<float, 4, 130> amplitudeSpectrum;    ///< [channel][index 1..128], microvolts
  Bounded<float, 4, 130> runningMeanSpectrum;  ///< its mean over blocks 1..blockCount
  Bounded<Fixed, 6> mainsDisturbance;          ///< [channel 1..4], largest amplitude around 50 Hz, microvolts
  Bounded<float, 258> filteredSamples;         ///< index 0..256, the low-passed signal of one channel around 128
  Bounded<float, 4, 130> meanCoherence;        ///< [pair][index 1..128], running mean of 100 x cosine
  Bounded<Fixed, 4> syncAverage;               ///< [pair], mean block correlation in percent, one decimal
  Bounded<float, 4> deltaPeak, thetaPeak, alfaPeak, betaPeak;  ///< [channel], microvolts, one decimal

  // Recordings: written by recording/
  Int16 noteCount = 0;
  Bounded<float, 60> noteTimes;        ///< [1..60], number of the block during which the note was begun
  Bounded<std::string, 60> noteTexts;  ///< [1..60]
  std::string fileVersionTag;          ///< "V3" or "V4" of the opened file
  std::string openFilePath;            ///< "" when no file is open
  std::string openFileTitle;           ///< its name without folder
  std::string lastOpenDir;             ///< where the open dialog starts
  Int16 displaySpeed = 6;              ///< replay: blocks in 3 seconds, 1 or more
  Int16 fileLoopRunning = 0;           ///< a scan or a replay is under way
  Int16 assembling = 0;                ///< the data file is being written
  /// The data file being scanned or replayed. Whoever closes or replaces it ends the loop that reads from it.
  std::shared_ptr<platform::InputFile> readHandle;
  FileCommand nextFileCommand{};  ///< given during a scan or a replay, to be run when that has ended
  int temporaryWritten = 0;       ///< bytes of `temporaryContent` that are known to stand in the file
  std::string temporaryContent;   ///< what the temporary file is to hold: header line and blocks so far, as bytes
  std::string recordingFault;     ///< the first write that failed since recording began; "" = none
  std::string setAsidePath;       ///< where a temporary file went that was not to be deleted; "" = nowhere
  std::vector<std::string> sideFileLines;  ///< what the side file is known to hold; none: it is to be written anew
  std::string foreignPaths;                ///< files found in the temporary file's place and kept, each behind "\r"
  int blocksFromMemory = 0;                ///< blocks that the temporary file did not hold as they were recorded
  Int16 dataFileWhole = 0;                 ///< 1: the last assembling wrote all of the data file
  std::string savedElsewhere;              ///< the data file in the place that was asked for; "" = there was no need
  Int16 recordingFaultUntold = 0;          ///< something failed or was mended in recording and nobody has been told
  Int16 nobodyToAsk = 0;                   ///< the program ends where no box can be shown: faults go to standard error
  std::function<void()> finishAssembling;  ///< while a data file is written: the rest of it, letting no events in
  std::string fileDateField;               ///< of the opened file, as it stands there: date and version tag
  Int16 openNote = 0;           ///< 0..60, the note whose text is being typed; 0: none was begun with "Annota"
  std::string recordingNotice;  ///< what is to be told of the data file once it is written; "" = nothing
  std::unique_ptr<platform::FileLock> folderLock;  ///< held from Start until the acquisition has ended for good

  // Displays: written by display/
  Int16 microvoltScale = 60;  ///< full scale of the spectrum panels, microvolts
  Int16 bandColour = 0;       ///< palette index of the bar being drawn
  std::string pairLabelLeft, pairLabelRight;
  Int16 selectionDragging = 0;                   ///< 1 between press and release on the time strip
  Int16 selectionStartX = 0, selectionEndX = 0;  ///< strip units (seconds)
  std::string printPromptText;

  // --- Operations --------------------------------------------------------------------------------------------------

  // frame/start_up.cpp
  void startUp();        ///< priorities, defaults, configuration files, captions; a fault here ends the program
  void raisePriority();  ///< asks for more processor time, so that the waits keep up with the stream
  void setCaptions();    ///< puts the fixed captions on the buttons

  // frame/commands.cpp
  void startCommand();      ///< "Start": checks the names, links the instrument, starts acquisition
  void startAcquisition();  ///< a fresh count from block 1
  void stopCommand();       ///< "Stop": only sets flags; the next tick ends the acquisition
  void endCommand();        ///< "End"
  void endAcquisition();    ///< called by the tick; hands the block range on
  /// Ends the program at once, without a box: its session, its display or whoever sent a signal does not wait.
  void endWithoutAsking();
  /// A handshake or an acquisition is under way, or Stop was pressed and the turn that ends it is still to come.
  [[nodiscard]] bool acquisitionPending() const;
  /// What has to be waited for before another examination or file may begin, as a sentence; "" = nothing that comes by
  /// itself.
  [[nodiscard]] std::string awaited() const;
  /// The platform asks to close the main window; returns true when it must stay open until the next tick.
  [[nodiscard]] bool closeWindow();

  // device/device_link.cpp
  void openLink();  ///< handshake; returns with `linkReady` 1, or the program has ended
  /// Drops pending input and starts the stream. After a stop it first waits until the line is silent, for two seconds
  /// at most; while the stream runs its frames are counted on.
  void sendStartCommand();
  void sendStopCommand();

  // device/block_reading.cpp
  /// Waits for a block, decodes, smooths and checks it. A block whose channels may be out of their places is given up.
  /// Without one, after Stop or End or a fault, `artefactFlag` is 1.
  void readBlock();

  // device/acquisition_cycle.cpp
  void acquisitionTick();  ///< one turn
  void pauseElapsed();
  void smoothBlock();     ///< weights 0.3, 1, 0.3 in place; the left neighbour is already smoothed
  void removeBaseline();  ///< takes slow drifts away and centres the block on 128
  void drawRawTraces();
  void drawCorrectedTraces();
  void nameTraces();  ///< prints the pair's labels at the lower left, over the lines
  void drawTrace(platform::Surface& surface, int channel, platform::Colour colour);

  // device/artefact_rejection.cpp
  void checkArtefacts();  ///< sets `artefactFlag`
  void rejectBlock();     ///< shows the block in blue and asks the instrument for another
  void editArtefactThreshold();

  // device/channel_selection.cpp
  void toggleChannelPair();

  // analysis/spectral_analysis.cpp
  void analyseBlockSpectra();
  void computeComplexSpectra();
  void transformChannel();

  // analysis/low_pass_filter.cpp
  void lowPassBlock();
  void inverseTransform();

  // analysis/coherence.cpp
  void computeCoherence();
  void summariseSynchrony();

  // analysis/block_correlation.cpp, analysis/ocular_pass.cpp, analysis/analysis_reset.cpp
  void computeBlockCorrelation();
  void removeOcularArtefacts();
  void resetAnalysis();
  void drawCoherenceGraph();  ///< in analysis/coherence.cpp

  // analysis/band_panel.cpp
  void showBandPeaks();

  // recording/temporary_file.cpp
  /// Creates the temporary file with its header line; one that a crash has left with blocks in it is set aside first.
  /// A RuntimeError (output) where the file cannot be written.
  void createTempFile();
  /// Rounds the block in `sampleBlock` to what a file can hold and, while recording, appends it. A failing write is
  /// told in the status label and made good with the next block if possible.
  void appendBlockToTemp();

  // recording/side_file.cpp
  /// While recording, puts the names, the date and the notes as they stand into the side file beside the temporary one;
  /// to be called whenever one of them changes. Never a fault: a side file that cannot be written is tried again at the
  /// next change.
  void keepNotesAndNames();

  // recording/data_file.cpp
  /// Writes the data file from the header values, the notes and the blocks as they were recorded. The temporary file is
  /// compared with them block by block; then it is deleted, or set aside with the side file if any write has failed.
  /// Failing steps are skipped; the first cause stays in `recordingFault`.
  void assembleDataFile();
  /// From `readHandle`; sets the subject, the date field, the date, the tag, the notes and `headerText1`, again the
  /// date field. All or nothing: a RuntimeError leaves them as they were.
  void readFileHeader();
  /// From `readHandle` into `sampleBlock`, by `fileVersionTag`; with another tag than V3 or V4 nothing is read.
  void readFileBlock();

  // recording/recording_control.cpp
  void checkFileName();   ///< sets `fileNameExists`
  void startRecording();  ///< "Registra"
  void endRecording();    ///< at the end of an acquisition

  // recording/recording_names.cpp
  /// Checks the names in the boxes as they stand: the name that is checked by `checkFileName`, the one that will be
  /// written, and the subject. Says what is wrong and returns whether a recording may be made under them.
  [[nodiscard]] bool namesAreUsable();
  /// Takes the names and the date of the coming recording.
  void takeNames();

  // recording/notes.cpp
  void beginNote();       ///< "Annota": counts and stamps a note, and opens the note box
  void noteKey(int key);  ///< a key in the note box; Enter (13) takes the note's text
  /// The texts of the notes that a new count takes over, to be asked for before the notes are cleared: those confirmed
  /// since "Registra" and, empty and last, the one being typed.
  [[nodiscard]] std::vector<std::string> notesToCarryOver() const;
  void carryNotesOver(const std::vector<std::string>& texts);  ///< counts and stamps them in the new count
  /// Tells that a text typed in the note box is not kept; "" tells nothing.
  void tellNoteIsDropped(const std::string& text);

  // recording/folder_lock.cpp
  /// Takes the lock of the data folder for an acquisition; returns whether that may begin. Somebody else's is told; one
  /// that cannot be had for another reason is told and may be done without.
  [[nodiscard]] bool reserveDataFolder();
  void releaseDataFolder();

  // recording/file_opening.cpp
  void openDataFile();       ///< "Apri File": reads a whole file through the analysis and shows its summary
  void startBlockChanged();  ///< the slider was moved

  // recording/replay.cpp
  void replayFile();  ///< "Display": shows a file block by block from the slider's position

  // display/window_layout.cpp
  /// Takes everything of the examination before off the graphs and from the labels beside them.
  void clearPictures();
  void drawGraphFrames();    ///< the two layout operations below, at the start of an acquisition
  void drawAxesAndLabels();  ///< also takes the names and the date of the coming recording
  void drawGrids();          ///< over what the graphs show
  void drawFrequencyAxis();
  void drawRulers();
  void amplitudeScaleMoved();
  void displaySpeedMoved();

  // display/spectrum_display.cpp
  void drawSpectrumDisplay();

  // display/interval_selection.cpp
  void stripPressed(float x);  ///< x in strip units (seconds), 3 a block; nothing happens without data in memory
  void stripMoved(float x);
  void stripReleased(float x);  ///< sets the interval for the report

  // display/screen_print.cpp
  void printCommand();
  void printScreen();

  // report/open_report.cpp
  void openReport();
};

}  // namespace korvinel
