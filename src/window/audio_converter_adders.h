#pragma once
// The Audio Converter's add buttons take files in through the level intake's AddFromFile and
// AddFromFolder; the audio subsystem can't call them itself, since the intake uses it.

namespace vardolin {

class Dialog_ConvertAudio;
class Program;

void HandIntakeAddRoutines(Program& program, Dialog_ConvertAudio& converter);

}  // namespace vardolin
