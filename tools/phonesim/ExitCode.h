#pragma once

namespace pevrix {

/// How a run of the simulated phone ended: the exit codes of the program, which `--help` lists.
enum class ExitCode
{
    Done = 0,          ///< everything that was asked for has been done
    BadUsage = 2,      ///< wrong options, or a file named in them cannot be used
    CannotConnect = 3, ///< nobody listens there, or nobody answered the hello
    Refused = 4,       ///< the PC answered the hello with an error
    Lost = 5,          ///< the connection ended without the phone wanting it
    VideoTrouble = 6,  ///< the encoder or the input file failed
};

} // namespace pevrix
