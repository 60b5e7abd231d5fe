#pragma once

#include <string>
#include <vector>

#include "frame/main_fields.h"

namespace korvinel::platform {
class Surface;
}

namespace korvinel {

/// The main window's record: the fields of main_fields.h and the operations on them, nearly all without arguments and
/// results. It lives as long as the window.
/// Everything runs on the user-interface thread. A wait dispatches events, so flags must be read again after it.
struct MainState : MainFields {
  using MainFields::MainFields;

  // Each comment says what the operation reads, writes and requires. Buttons are named by their captions.

  // frame/start_up.cpp
  /// Prepares the timers, sets the defaults, reads the configuration files into `serialPort` and `binCalibration`, and
  /// draws the empty window. Called once; a fault ends the program.
  void startUp();
  void raisePriority();  ///< asks the system for more processor time, so that the waits keep up with the stream
  void setCaptions();    ///< writes the fixed captions of the buttons

  // frame/commands.cpp
  /// "Start": checks the names, reserves the data folder, opens the link (which waits) and starts the acquisition. Does
  /// nothing during a handshake, an acquisition or a scan; between Stop and the last turn the status label says what to
  /// wait for.
  void startCommand();
  /// Clears the analysis, the histories, the flags and the block range, carries the notes over, sends the start command
  /// and enables the tick timer: the count restarts from block 1. Requires an open link.
  void startAcquisition();
  /// "Stop": sets `stopRequested`, clears `acquisitionRunning`. The current turn or the next tick ends the acquisition;
  /// a scan or a replay ends after its current block.
  void stopCommand();
  /// "End": sets `endRequested`. Throws ProgramEnd unless an acquisition or a scan is under way, which then ends first.
  void endCommand();
  /// Called by a turn. Stops the timers and the stream. After Stop or End it ends the recording, writes the block range
  /// into `shared`, sets `intervalSelectable`, and with `endRequested` throws ProgramEnd. If a recording was only just
  /// switched on (`recordingArmed`), it restarts the acquisition.
  void endAcquisition();
  /// Throws ProgramEnd at once and sets `nobodyToAsk`: for a signal, the session's end or a lost display.
  void endWithoutAsking();
  /// Whether a handshake or an acquisition is under way, the turn that ends it included.
  [[nodiscard]] bool acquisitionPending() const;
  /// What must end by itself before another examination or file may begin, as an Italian sentence; "" = nothing.
  [[nodiscard]] std::string awaited() const;
  /// The window is to be closed. Returns true, with `endRequested` and `stopRequested` set, if it must stay open until
  /// the acquisition or the scan has ended; otherwise throws ProgramEnd.
  [[nodiscard]] bool closeWindow();

  // device/device_link.cpp
  /// Opens `serialPort` and sends the test command until the instrument answers; then `linkReady` is 1. Waits about
  /// four seconds for each attempt. Cancel in the box of a failed attempt throws ProgramEnd.
  void openLink();
  /// Drops pending input and starts the stream. After a stop it first waits until the line is silent, for two seconds
  /// at most; while the stream runs, the count of its frames continues. Writes `commandText`, `commandChecksum` and
  /// `streamStopped`.
  void sendStartCommand();
  void sendStopCommand();  ///< sends the stop command and sets `streamStopped`; a failing line is not a fault

  // device/block_reading.cpp
  /// Waits for a block and decodes it into `sampleBlock`, then smooths and checks it; a rejected one is shown and the
  /// next one asked for. A block that may have lost bytes is dropped and the stream restarted. `artefactFlag` is 0 only
  /// if a block was accepted.
  void readBlock();

  // device/acquisition_cycle.cpp
  /// One turn: counts, reads, analyses, records and shows a block, or ends the acquisition. A failing step is skipped.
  /// The pause timer (or, after a rejected block or a fault, the tick timer) is enabled for the next turn.
  void acquisitionTick();
  void pauseElapsed();  ///< the pause is over: enables the tick timer, disables the pause timer
  /// Smooths `sampleBlock` in place, columns 1..256, with weights 0.3, 1, 0.3 over 1.6; columns 0 and 257 become edge
  /// copies. The left neighbour is already smoothed.
  void smoothBlock();
  /// Subtracts from `sampleBlock` its own baseline (slow drifts, eye movements) and centres it on 128.
  void removeBaseline();
  /// Clears both traces and draws the two channels of `channelPair` from `sampleBlock` in light green; with
  /// `artefactFlag` 1 also "Artefatto!".
  void drawRawTraces();
  void drawCorrectedTraces();  ///< draws the same two channels in blue over what is there
  void nameTraces();           ///< prints `pairLabel1` and `pairLabel2` at the lower left, over the lines
  /// Draws one row of `sampleBlock`; 255 is the top. Writes `lineX1` .. `lineY2`. `channel`: 0..4, row 0 is empty.
  void drawTrace(platform::Surface& surface, int channel, platform::Colour colour);

  // device/artefact_rejection.cpp
  /// Sets `artefactFlag` to 1 if any sample of `sampleBlock` is further than `artefactThreshold` from 128, else to 0.
  void checkArtefacts();
  /// Draws the rejected `sampleBlock` in blue, the pair by `sharedSelector`; then sends the start command and enables
  /// the tick timer.
  void rejectBlock();
  /// "Artefatti": asks for `artefactThreshold`; refused while ocular artefacts are being removed.
  void editArtefactThreshold();

  // device/channel_selection.cpp
  /// "Canali": counts the press in `pairToggleCount`, whose parity gives `channelPair` and the two trace labels. With
  /// `intervalSelectable` 1, redraws the time strip and the spectra.
  void toggleChannelPair();

  // analysis/spectral_analysis.cpp
  /// The full spectral analysis of `sampleBlock`: what `computeComplexSpectra` writes, and the amplitudes in microvolts
  /// (`binCalibration`) in `amplitudeSpectrum`, `runningMeanSpectrum`, `mainsDisturbance` and the `spectrumHistory` of
  /// block `blockCount`. A `blockCount` outside 1..202 is a RuntimeError.
  void analyseBlockSpectra();
  /// Only the transform of `sampleBlock`: writes `spectrumRe`, `spectrumIm`, `shapeSpectrum` and `blockDeviation`, no
  /// amplitudes and no history. A scan needs it before the low-pass; `analyseBlockSpectra` does the same itself.
  void computeComplexSpectra();
  /// Transforms `fftRe` in place (with `fftIm`, whose former content does not matter) and writes the `shapeSpectrum` of
  /// `channelIndex`.
  void transformChannel();

  // analysis/low_pass_filter.cpp
  /// Writes the low-passed signals (below 39.5 Hz) into `sampleBlock`, columns 1..256. Reads `spectrumRe` and
  /// `spectrumIm`, not the samples: they must be those of this block.
  void lowPassBlock();
  void inverseTransform();  ///< transforms `fftRe` and `fftIm` back into `filteredSamples`, around 128

  // analysis/coherence.cpp
  /// Phase coherence of the four pairs: from `spectrumRe` and `spectrumIm` into the `coherenceSpectrumHistory` of block
  /// `blockCount` and into `meanCoherence`. A `blockCount` of 0 is a RuntimeError.
  void computeCoherence();
  /// Draws the time strip of the whole examination for `channelPair` and writes the means of `coherenceHistory` into
  /// `syncAverage`. A `fileBlockCount` of 0 is a RuntimeError.
  void summariseSynchrony();
  void drawCoherenceGraph();  ///< clears the coherence graph and draws the `meanCoherence` of pair `channelPair`

  // analysis/block_correlation.cpp
  /// Correlation of the four pairs in `sampleBlock`, into `coherenceHistory` at block `blockCount`. Without an open
  /// file also redraws the time strip. Block 0 has none.
  void computeBlockCorrelation();

  // analysis/ocular_pass.cpp
  /// With the check box ticked, replaces the samples of `sampleBlock` that leave 58..198.
  void removeOcularArtefacts();

  // analysis/analysis_reset.cpp
  /// Clears the running means, the notes' times and texts, and the histories in `shared`, whose `examination` is
  /// counted. `meanCoherence` above index 70 stays until the next first block.
  void resetAnalysis();

  // analysis/band_panel.cpp
  /// Writes the largest amplitude of each band in `amplitudeSpectrum` into `deltaPeak` .. `betaPeak` and prints those
  /// of the pair shown.
  void showBandPeaks();

  // recording/temporary_file.cpp
  /// Creates the temporary file with its header line; one that a crash has left with blocks in it is set aside first.
  /// Resets the fields of the last recording's faults. A RuntimeError (output) if the file cannot be written.
  void createTempFile();
  /// While recording, rounds `sampleBlock` to what a file can hold and appends it; otherwise does nothing. A failed
  /// write is shown in the status label and completed with the next block if possible.
  void appendBlockToTemp();

  // recording/side_file.cpp
  /// While recording, writes the names, the date and the notes into the side file beside the temporary file. To be
  /// called whenever one of them changes. Never a fault: a failed write is repeated at the next change.
  void keepNotesAndNames();

  // recording/data_file.cpp
  /// Writes the data file from the header values, the notes and the blocks in `temporaryContent`. The temporary file is
  /// compared with them block by block; then it is deleted, or, if any write has failed, set aside with the side file.
  /// Failing steps are skipped; the first cause stays in `recordingFault`.
  void assembleDataFile();
  /// Reads the header from `readHandle` into the subject's name, the date, the version tag, the notes, `fileDateField`
  /// and `headerText1` (the date field again). All or nothing: a RuntimeError leaves them as they were.
  void readFileHeader();
  /// Reads the next block from `readHandle` into `sampleBlock`, by `fileVersionTag`; nothing unless that is V3 or V4.
  void readFileBlock();

  // recording/recording_control.cpp
  void checkFileName();  ///< sets or clears `fileNameExists`: a data file of the name in the box, case ignored
  /// "Registra": checks and takes the names, creates the temporary file, sets `recordingActive` and `recordingArmed`.
  /// Only during an acquisition and once.
  void startRecording();
  /// At the end of an acquisition: takes the open note, writes the data file, clears the recording's flags, and reports
  /// what could not be kept. Nothing unless `recordingActive` is 1.
  void endRecording();

  // recording/recording_names.cpp
  /// Checks the boxes of the file name (by `checkFileName`, and with the ending it will get) and of the subject. Shows
  /// what is wrong; returns whether a recording may be made under them.
  [[nodiscard]] bool namesAreUsable();
  /// Takes `dataFileName` and `subjectName` from the boxes and sets `recordingDate` to today.
  void takeNames();

  // recording/notes.cpp
  void beginNote();       ///< "Annota": counts a note, stamps it with `blockCount` (at least 2), opens the note box
  void noteKey(int key);  ///< a key in the note box; Enter (13) stores the note's text
  /// The texts of the notes to be kept when the count restarts: those confirmed since "Registra" and, empty and
  /// last, the one being typed. To be called before `resetAnalysis`.
  [[nodiscard]] std::vector<std::string> notesToCarryOver() const;
  void carryNotesOver(const std::vector<std::string>& texts);  ///< counts and stamps them in the new count
  /// Tells the user that this text of the note box is not kept; "" is ignored.
  void tellNoteIsDropped(const std::string& text);

  // recording/folder_lock.cpp
  /// Locks the data folder for an acquisition (`folderLock`); returns whether the acquisition may begin. Refused if
  /// another program holds the lock; if locking fails for another reason, the user decides.
  [[nodiscard]] bool reserveDataFolder();
  void releaseDataFolder();  ///< frees `folderLock`, if held

  // recording/file_opening.cpp
  /// "Apri File": asks for a file, scans it (reads and analyses every block) and shows its summary. Writes the block
  /// range into `shared`; sets `intervalSelectable`.
  void openDataFile();
  /// The slider was moved: sets `replayStartBlock`; with `intervalSelectable` 1 also `blockCount`, and shows that
  /// block.
  void startBlockChanged();

  // recording/replay.cpp
  void replayFile();  ///< "Display": shows the open file block by block from the slider's position, by `displaySpeed`

  // display/window_layout.cpp
  /// Removes the last examination from the graphs and from the labels beside them; they show no pair any more.
  void clearPictures();
  void drawGraphFrames();      ///< the two layout operations below, at the start of an acquisition
  void drawAxesAndLabels();    ///< captions, frequency axis and labels; also calls `takeNames`
  void drawGrids();            ///< grids, rulers and frames, over what the graphs show
  void drawFrequencyAxis();    ///< clears the axis between the spectra and prints its hertz
  void drawRulers();           ///< the rulers under the spectra, by `microvoltScale`
  void amplitudeScaleMoved();  ///< sets `microvoltScale`; redraws the rulers and, with data in memory, the spectra
  void displaySpeedMoved();    ///< sets `displaySpeed` and its label

  // display/spectrum_display.cpp
  /// Draws the spectra of `channelPair` and the labels beside them. With `intervalSelectable` 1, `amplitudeSpectrum` is
  /// first filled from the `spectrumHistory` of block `blockCount`. During a replay also draws the time strip.
  void drawSpectrumDisplay();

  // display/interval_selection.cpp
  // The mouse on the time strip, x in strip units (seconds), 3 per block. Nothing happens unless `intervalSelectable`
  // is 1.
  void stripPressed(float x);   ///< sets `selectionStartX`, begins dragging
  void stripMoved(float x);     ///< while dragging, sets `selectionEndX` and draws the bar
  void stripReleased(float x);  ///< ends dragging; sets the interval for the report in `shared`

  // display/screen_print.cpp
  void printCommand();  ///< "Stampa": sets `printRequested`, which ends a replay, and prints
  void printScreen();   ///< asks, then prints the active window; Cancel clears `printRequested`

  // report/open_report.cpp
  void openReport();  ///< "Analisi": opens the report window; without data in memory says why not
};

}  // namespace korvinel
