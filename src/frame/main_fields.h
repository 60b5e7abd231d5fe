#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/colour.h"
#include "values/bounded.h"
#include "values/fixed.h"
#include "values/int16.h"

namespace korvinel::platform {
struct FileLock;
struct InputFile;
struct Platform;
}  // namespace korvinel::platform

namespace korvinel {

struct DataFileAssembly;
struct Facts;
struct MainWindow;
struct ProgramValues;

/// A command that reads a data file.
enum class FileCommand { none, open, replay };

/// Why the last handshake or the wait for a block has failed.
enum class LinkTrouble {
  none,
  port,         ///< the port cannot be opened, or its line has failed: see `lineFault`
  silence,      ///< nothing arrives
  otherAnswer,  ///< what arrives is not the instrument's answer: see `linkAnswer`
  noSilence,    ///< the line never falls silent after the answer
  lostFrames,   ///< bytes are lost again and again
};

/// How the last recording ended, or is going to.
struct RecordingResult {
  bool made = false;  ///< whether anything was recorded since Start
  int blocks = 0;     ///< in the data file
  int notes = 0;      ///< made by the operator
};

/// The fields of the main window's record, grouped by the folder that writes them.
/// Channels 1..4 are F1, F2, T5, T6; pairs 1..4 are F1-F2, T5-T6, F1-T5, F2-T6. Row 0 of channels and pairs is unused.
struct MainFields {
  MainFields(MainWindow& mainWindow, ProgramValues& programValues, platform::Platform& theHost);
  ~MainFields();
  MainFields(const MainFields&) = delete;
  MainFields& operator=(const MainFields&) = delete;

  MainWindow& window;
  ProgramValues& shared;
  platform::Platform& host;

  // The current block: written by device/, recording/ (from a file) and analysis/
  /// [channel][sample 1..256], sample units, mid level 128; columns 0 and 257: edge copies. Its stages, in order:
  /// - In a live turn: decoded from the frames, smoothed (`smoothBlock`), checked, drawn in green; baseline removed
  ///   (`removeBaseline`), ocular artefacts removed if wanted, drawn in blue; rounded and appended to the file while
  ///   recording (`appendBlockToTemp`), analysed (`analyseBlockSpectra`); low-passed (`lowPassBlock`) for the
  ///   correlation. The coherence comes from the spectra before the low-pass.
  /// - In a scan: read from the file, transformed (`computeComplexSpectra`), low-passed, ocular artefacts removed if
  ///   wanted; then analysed and correlated. Spectra and coherence are those of the low-passed signal.
  /// - In a replay: read from the file, ocular artefacts removed if wanted, drawn in green, analysed. No low-pass.
  Bounded<float, 4, 258> sampleBlock;
  Int16 samplesPerBlock = 256;
  Int16 fftHalf = 128;       ///< half a block: spectrum indexes 1..fftHalf are kept
  Int16 displayedBins = 64;  ///< spectrum indexes drawn as bars and in the coherence graph
  Int16 blockCount = 0;      ///< number of the current block, from 1
  /// The block last decoded, as `sampleBlock` before its first stage; a rejected one too.
  Bounded<float, 4, 258> decodedBlock;
  int decodedBlocks = 0;  ///< blocks decoded since the program was started

  // Start-up: written by frame/
  Bounded<float, 130> binCalibration;  ///< factor of spectrum index 1..128; 0, 129 and 130 stay 0
  Int16 serialPort = 0;                ///< 1 = first port
  platform::Colour startButtonColour = platform::Colour::buttonFace;  ///< restores the record button

  // Program state: flags, 0 or 1
  Int16 acquisitionRunning = 0;  ///< blocks are being acquired, or a file is being scanned
  Int16 stopRequested = 0;       ///< Stop was pressed, or the block limit reached
  Int16 endRequested = 0;        ///< the program ends with the current acquisition or scan
  Int16 intervalSelectable = 0;  ///< a finished acquisition or a scanned file is in memory
  Int16 recordingActive = 0;     ///< accepted blocks are being recorded
  Int16 recordingArmed = 0;      ///< recording was just switched on: the current turn is the last of the old count
  Int16 replayActive = 0;        ///< the open file is, or was last, replayed: the time strip marks the current block
  Int16 printRequested = 0;      ///< "Stampa" was pressed; ends a replay
  Int16 fileNameExists = 0;      ///< a data file of the typed name exists
  Int16 linkPending = 0;         ///< the handshake is under way
  Int16 turnRunning = 0;         ///< a turn is under way, the end of the acquisition included

  // Texts
  std::string recordingDate;                          ///< "dd/mm/yyyy"; after opening a file, with a trailing blank
  std::string headerText1, headerText2, headerText3;  ///< lines of a notice
  std::string messageText1, messageText2, messageText3, messageText4, messageText5;  ///< lines of a message

  // Device link: written by device/
  std::string commandText;    ///< the command being built and sent, as bytes
  Int16 commandChecksum = 0;  ///< running byte sum of the command
  Int16 linkReady = 0;        ///< 1 once the instrument has answered
  Int16 sharedSelector = 0;   ///< seconds to wait in the handshake; the pair (1, 2) shown for rejected blocks
  double timerMark = 0;       ///< start of the running wait or turn, seconds
  double readStartTime = 0;   ///< start of the wait for a block, seconds
  int messageAnswer = 0;      ///< last OK/Cancel box: 1 = OK, 2 = Cancel
  int streamPosition = 0;     ///< bytes decoded of the last block received
  Int16 streamStopped = 1;    ///< no start command has been sent since the last stop or handshake
  Int16 framesCut = 0;        ///< 1: at a stop the last frame was found incomplete
  std::shared_ptr<const Facts> lineFault;  ///< why the port could not be opened or the line failed; null = it works
  LinkTrouble linkTrouble{};               ///< of the last handshake or block; none while one is awaited anew
  std::string linkAnswer;                  ///< what came back from the last test command, as bytes; "" = nothing
  double handshakeStart = 0;               ///< of the handshake's last attempt, seconds
  std::string alignmentFault;   ///< why the stream was last restarted to find its frames; "" = not since Start
  int alignmentFaultBlock = 0;  ///< `decodedBlocks` at that time

  // Acquisition and artefacts: written by device/
  Int16 artefactFlag = 0;              ///< 1: the last block was rejected, or none was read
  Int16 artefactThreshold = 130;       ///< allowed excursion from the mid level 128, sample units, 70..130
  int blocksRejected = 0;              ///< since the count of the blocks began
  Fixed pauseInterval;                 ///< milliseconds until the next block is asked for
  Int16 channelPair = 1;               ///< shown on the traces: 1 = channels 1, 2; 2 = channels 3, 4
  Int16 pairToggleCount = 0;           ///< presses of the channel button since Start
  std::string pairLabel1, pairLabel2;  ///< the names on the two traces
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
  Int16 noteCount = 0;                 ///< 0..60
  Bounded<float, 60> noteTimes;        ///< [1..60], the block in which the note was begun, at least 2 for a new one
  Bounded<std::string, 60> noteTexts;  ///< [1..60]
  std::string fileVersionTag;          ///< "V3" or "V4" of the opened file
  std::string openFilePath;            ///< "" when no file is open
  std::string openFileTitle;           ///< its name without folder
  std::shared_ptr<const Facts>
      openingFault;           ///< why the last file chosen could not be read, or only to a `block`; null = none
  std::string lastOpenDir;    ///< where the file dialog starts
  Int16 displaySpeed = 6;     ///< replay: blocks in 3 seconds, 1 or more
  Int16 fileLoopRunning = 0;  ///< a scan or a replay is under way
  int scanTotal = 0;          ///< blocks in the file being scanned, as far as its size tells; 0 = not known
  Int16 assembling = 0;       ///< the data file is being written
  /// The data file being scanned or replayed. Closing or replacing it ends the loop that reads from it.
  std::shared_ptr<platform::InputFile> readHandle;
  FileCommand nextFileCommand{};                ///< given during a scan or a replay, runs when that has ended
  int temporaryWritten = 0;                     ///< bytes of `temporaryContent` known to be in the temporary file
  std::string temporaryContent;                 ///< the recording so far, as bytes: header line and blocks
  std::shared_ptr<const Facts> recordingFault;  ///< the first failed write since recording began; null = none
  std::string setAsidePath;                     ///< the new path of a temporary file that was kept; "" = none
  std::vector<std::string> sideFileLines;       ///< known to be in the side file; empty: to be rewritten
  std::string foreignPaths;        ///< foreign files found under the temporary file's name and kept, each after "\r"
  int blocksFromMemory = 0;        ///< blocks that the temporary file had lost or changed
  RecordingResult lastRecording;   ///< of this examination
  Int16 dataFileWhole = 0;         ///< 1: the last assembling wrote the whole data file
  std::string savedElsewhere;      ///< the data file in another place that the user chose; "" = none
  Int16 recordingFaultUntold = 0;  ///< a fault or repair of the recording is still to be reported
  Int16 nobodyToAsk = 0;           ///< 1: the program is ending without boxes; faults go to standard error
  DataFileAssembly* assembly = nullptr;            ///< set while a data file is being written (recording/data_file.h)
  std::string fileDateField;                       ///< of the opened file, unchanged: date and version tag
  Int16 openNote = 0;                              ///< 1..60: the note begun with "Annota" and being typed; 0: none
  std::string recordingNotice;                     ///< to be shown once the data file is written; "" = nothing
  std::unique_ptr<platform::FileLock> folderLock;  ///< held from Start until the acquisition has ended

  // Displays: written by display/
  Int16 microvoltScale = 60;                     ///< full scale of the spectrum panels, microvolts
  Int16 bandColour = 0;                          ///< palette index of the bar being drawn
  std::string pairLabelLeft, pairLabelRight;     ///< the names on the two spectra
  Int16 selectionDragging = 0;                   ///< 1 between press and release on the time strip
  Int16 selectionStartX = 0, selectionEndX = 0;  ///< strip units (seconds)
  std::string printPromptText;                   ///< the question before printing

  // The pair that each graph shows, 1 (F1-F2) or 2 (T5-T6); 0: nothing since it was cleared for another examination.
  // Not always `channelPair`: a graph drawn before "Canali", and a rejected block, keep theirs.
  Int16 tracesPair = 0, spectraPair = 0, coherencePair = 0, numbersPair = 0, stripPair = 0;
};

}  // namespace korvinel
