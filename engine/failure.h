// How the engine reports a failure: its message (printed by the caller)
// then the line "error %d.\n" on the engine's standard output. Nothing
// unwinds; the caller returns a neutral value and the run goes on.
#ifndef ENGINE_FAILURE_H_
#define ENGINE_FAILURE_H_

void engine_fail(int number);

#endif  // ENGINE_FAILURE_H_
