#pragma once
// What is measured, and what with. `main` lists the cases; the argument of each is a count of blocks out of `sizes`.

#include <benchmark/benchmark.h>

namespace canvas::bench {

/// From a file's bytes to a new document, and the end of that.
void readDocument(benchmark::State& state);
/// Finds lines and tokens, and does nothing with them.
void readTokens(benchmark::State& state);
/// Lines into plain structs.
void readPlain(benchmark::State& state);
/// The same structs out of JSON, with simdjson's on-demand parser.
void readJson(benchmark::State& state);

/// From a document to the file's text.
void writeDocument(benchmark::State& state);
/// From plain structs to the same text.
void writePlain(benchmark::State& state);

void checkConnections(benchmark::State& state);

/// Makes an edit record of two objects and puts it onto the undo stack; as many as blocks, then empties the stack.
void pushRecords(benchmark::State& state);
/// The same with records that are there already.
void pushReadyRecords(benchmark::State& state);
/// Takes every edit back and repeats it.
void undoAndRedo(benchmark::State& state);

/// QUndoStack with commands that hold two shared pointers.
void pushCommands(benchmark::State& state);
/// The part of pushCommands that is not the stack's: makes and deletes the commands.
void makeCommands(benchmark::State& state);
void undoAndRedoCommands(benchmark::State& state);

/// Bytes that a program of so many blocks holds on the heap, all in all.
double bytesOfDocument(int blocks);
double bytesOfPlainProgram(int blocks);

/// Modules of the record store beside SQLite by hand, and the node list as it grows.
void printHardware();

}  // namespace canvas::bench
