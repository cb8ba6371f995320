#!/usr/bin/env node
// Runs the program of this platform's package in its own place: with its arguments, streams and
// signals, and with its exit status.
"use strict";

const { spawn } = require("node:child_process");
const { signals } = require("node:os").constants;

const platform = `${process.platform}-${process.arch}`;
const packages = require("../package.json").optionalDependencies;

function refuse(...lines) {
  console.error(["registry-docs: " + lines[0], ...lines.slice(1)].join("\n"));
  process.exitCode = 2;
}

// The path of the program; undefined when there is none, which has been said then.
function findProgram() {
  if (process.env.REGISTRY_DOCS_PROGRAM) return process.env.REGISTRY_DOCS_PROGRAM;
  const name = `registry-docs-${platform}`;
  const own = "Set REGISTRY_DOCS_PROGRAM to the path of a program that you have built.";
  if (!(name in packages)) {
    const known = Object.keys(packages).join(", ");
    return refuse(`expected a package for the platform ${platform}, found only ${known}`, own);
  }
  try {
    return require.resolve(`${name}/bin/registry-docs${process.platform === "win32" ? ".exe" : ""}`);
  } catch {
    return refuse(
      `expected the program for the platform ${platform} in the package ${name}, which is not installed`,
      "Probably optional packages were left out (--omit=optional), or the lock file was made on another",
      "platform and does not name it. Install with --include=optional; if that does not help, remove",
      "node_modules and the lock file, and install again.",
      own,
    );
  }
}

function run(program) {
  const failed = (error) => refuse(`${program}: expected a program that can be run, found ${error.code}`);
  let child;
  // A signal is the program's to obey, and this process ends when the program has. One that comes
  // while the program is being started is delivered when it runs.
  for (const signal of ["SIGINT", "SIGTERM", "SIGHUP"]) process.on(signal, () => child?.kill(signal));
  try {
    child = spawn(program, process.argv.slice(2), { stdio: "inherit" });
  } catch (error) {
    return failed(error);
  }
  child.on("error", failed);
  child.on("exit", (status, signal) => {
    process.exitCode = signal ? 128 + signals[signal] : status;
  });
}

const program = findProgram();
if (program) run(program);
