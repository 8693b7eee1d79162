#pragma once
// Numbers of the texts the audio converter uses. Every id here has an English wording in
// resources/english.trc.

#include <cstdint>

namespace vardolin::text {

// Dialog_ConvertAudio.
inline constexpr std::int32_t AudioWorkFolder = 365;       // "\..." below the program's folder
inline constexpr std::int32_t AudioConvertButton = 366;    // caption of Pul_Converti
inline constexpr std::int32_t AudioFilterMp3 = 367;        // "Description|*.mp3"
inline constexpr std::int32_t AudioFramesMp3Source = 368;  // Frame_Files for MP3 sources
inline constexpr std::int32_t AudioFilterWave = 369;       // "Description|*.wav"
inline constexpr std::int32_t AudioFramesWaveSource = 370;
inline constexpr std::int32_t AudioFramesWaveToMp3 = 371;
inline constexpr std::int32_t AudioOutFolderMp3 = 372;   // Frame_NomeDirOut, MP3 target
inline constexpr std::int32_t AudioOutFolderWave = 373;  // Frame_NomeDirOut, wave target
inline constexpr std::int32_t AudioRowSize = 376;        // ~1 = the file's size
inline constexpr std::int32_t AudioWaveExtension = 377;  // ".wav"
inline constexpr std::int32_t AudioRowWave = 378;        // ~1 bits, ~2 channel name, ~3 rate
inline constexpr std::int32_t AudioListCount = 379;      // followed by the count
inline constexpr std::int32_t AudioCancelled = 380;
inline constexpr std::int32_t AudioNoOutFolder = 381;
inline constexpr std::int32_t AudioEmptyList = 384;
inline constexpr std::int32_t AudioNotConverted = 385;  // followed by the engine's message
inline constexpr std::int32_t AudioMp3Extension = 386;
inline constexpr std::int32_t AudioWavExtension = 387;
inline constexpr std::int32_t AudioOpenResult = 388;  // followed by the path and "' ?"
inline constexpr std::int32_t AudioCloseAfterDone = 389;
inline constexpr std::int32_t AudioDone = 390;
inline constexpr std::int32_t AudioNoRowChosen = 391;
inline constexpr std::int32_t AudioRemoveFile = 392;  // followed by the name and " ?"
inline constexpr std::int32_t AudioOutFolderTitle = 393;
inline constexpr std::int32_t AudioOutFolderStart = 394;
inline constexpr std::int32_t AudioRowNotAWave = 9200;  // behind the size of a .wav that isn't one

// Dialog_ConvertiMp3 and the engine.
inline constexpr std::int32_t ConvertiPreparing = 398;
inline constexpr std::int32_t ConvertiMp3Ending = 400;
inline constexpr std::int32_t ConvertiImpossible = 401;  // ~1 file, ~2 its description
inline constexpr std::int32_t NotAWave = 9201;           // the description of what isn't a wave
inline constexpr std::int32_t ConvertiStandardDescription = 402;
inline constexpr std::int32_t ConvertiStopped = 403;
inline constexpr std::int32_t ConvertiOutExtension = 404;
inline constexpr std::int32_t ConvertiMp3Extension = 405;
inline constexpr std::int32_t ConvertiDecodedFile = 406;  // "\..." in the target folder
inline constexpr std::int32_t ConvertiDecoding = 407;     // ~1 = quoted file name
inline constexpr std::int32_t ConvertiDecodeFailed = 408;
inline constexpr std::int32_t ConvertiToStandard = 409;    // ~1 quoted name, ~2 description
inline constexpr std::int32_t ConvertiStandardFile = 410;  // "\..." beside the decoded file
inline constexpr std::int32_t ConvertiStandardNow = 411;   // description after that step
inline constexpr std::int32_t ConvertiStandardTarget = 412;
inline constexpr std::int32_t ConvertiPreparingMp3 = 413;  // ~1 = "n\count"
inline constexpr std::int32_t ConvertiForMp3File = 414;    // "\..." in the target folder
inline constexpr std::int32_t ConvertiForMp3Now = 415;     // description after that step
inline constexpr std::int32_t ConvertiConverting = 416;    // ~1 = "n\count"
inline constexpr std::int32_t ConvertiWorkFile = 417;      // "\..." in the target folder
inline constexpr std::int32_t ConvertiMp3Out = 418;
inline constexpr std::int32_t ConvertiEncoding = 419;      // ~1 = "n\count"
inline constexpr std::int32_t ConvertiEncodeFailed = 420;  // ~1 = the tool's error
inline constexpr std::int32_t ConvertiNoResult = 421;
inline constexpr std::int32_t ConvertiAllDone = 422;
inline constexpr std::int32_t ConvertiStepDecode = 423;  // 423 to 428 name the steps
inline constexpr std::int32_t ConvertiAskGoOn = 429;
inline constexpr std::int32_t ConvertiGaveUp = 430;
inline constexpr std::int32_t ConvertiCaption = 8450;  // " Audio conversion in progress"
inline constexpr std::int32_t ConvertiStop = 8451;     // caption of Pul_Stop

// Describing a wave.
inline constexpr std::int32_t WaveChannelMono = 1604;
inline constexpr std::int32_t WaveChannelStereo = 1605;
inline constexpr std::int32_t WaveTypeOther = 1606;
inline constexpr std::int32_t WaveType4Bit = 1607;
inline constexpr std::int32_t WaveTypePcm = 1608;
inline constexpr std::int32_t WaveRateAndBits = 1609;  // ~1 = bits, blank, channel name
inline constexpr std::int32_t WaveExtension = 1455;    // ".wav", the last four characters
inline constexpr std::int32_t WaveNotMusic = 1456;     // ~1 file, ~2 CR LF, ~3 two CR LF

// The encoder's choices.
inline constexpr std::int32_t EncoderMonoRow = 1664;  // MUST equal 1666
inline constexpr std::int32_t EncoderSameRate = 1665;
inline constexpr std::int32_t EncoderMono = 1666;
inline constexpr std::int32_t EncoderStereo = 1667;

// The two tools.
inline constexpr std::int32_t DecoderNoSource = 1732;     // ~1 = the path
inline constexpr std::int32_t DecoderProgram = 1733;      // "\..." below the program's folder
inline constexpr std::int32_t DecoderMissing = 1734;      // ~1 = the program's folder
inline constexpr std::int32_t DecoderOutput = 1735;       // "\..." below the program's folder
inline constexpr std::int32_t DecoderOptions = 1736;      // the output's name is put behind
inline constexpr std::int32_t DecoderCopyFailed = 1738;   // ~1 = the target
inline constexpr std::int32_t EncoderProgram = 1739;      // "\..." below the program's folder
inline constexpr std::int32_t EncoderMissing = 1740;      // ~1 program's folder, ~2 CR LF
inline constexpr std::int32_t EncoderNotStandard = 1741;  // ~1 = the file's name
inline constexpr std::int32_t EncoderBitRate = 1742;      // followed by the bit rate
inline constexpr std::int32_t EncoderMonoOption = 1743;
inline constexpr std::int32_t EncoderRateOption = 1744;  // followed by the rate in Hz
inline constexpr std::int32_t ToolNotStarted = 2266;     // followed by the program's path
inline constexpr std::int32_t ToolTimedOut = 8463;       // ~1 the tool, ~2 seconds

// The Audio Converter window's own captions.
inline constexpr std::int32_t ConvertAudioCaption = 8452;  // " Audio Converter"
inline constexpr std::int32_t ConvertAudioAddFile = 8453;
inline constexpr std::int32_t ConvertAudioAddFolder = 8454;
inline constexpr std::int32_t ConvertAudioRemove = 8455;
inline constexpr std::int32_t ConvertAudioBrowse = 8456;
inline constexpr std::int32_t ConvertAudioRestore = 8457;  // "Restore default settings"
inline constexpr std::int32_t ConvertAudioCancel = 8458;
inline constexpr std::int32_t ConvertAudioMp3Estimate = 8459;  // "New size of Mp3 (rough estimate)"
inline constexpr std::int32_t ConvertAudioOfSource = 8460;     // " of source WAV"
inline constexpr std::int32_t ConvertAudioAddTitle = 8461;     // title of the file dialogs
inline constexpr std::int32_t ConvertAudioAdding = 8462;       // ~1 = the file's name

}  // namespace vardolin::text
