// Runs the cases of a test program, each in a process of its own.
#pragma once

namespace test {

/// What a program's main returns, after testing::InitGoogleTest: runs what --gtest_filter selects. Every case
/// is forked from this process, so that what the program needs to start is paid for once, and no case sees
/// what another did: a phone can be switched on once in a process. Prints what failing cases printed, and a
/// summary. Arguments:
///   --prefix=<text>    stands before the names that are printed
///   --jobs=<number>    runs so many cases at once; as many as there are processors unless given
///   --limit=<seconds>  ends a case that takes more processor time; 120 unless given
///   --patience=<seconds>  ends a case that is not done by then; 1200 unless given, for a machine may be busy
///   --rehearse         runs the first case that has passed in this process as well, and undoes that; and one
///                      of each other suite that this pays for: an emulator translates code once, and seven
///                      tenths of a case's time went there
///   --here             runs them in this process, one after another: for the debugger
int run_cases(int argc, char** argv);

}  // namespace test
