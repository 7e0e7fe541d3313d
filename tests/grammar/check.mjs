// Puts the statement texts of the workbench's logs through a T-SQL parser that nobody here wrote.
//
//   node check.mjs [--exceptions FILE] (LOG | FOLDER)...
//
// A log holds one JSON object a line: {"text": ..., "edit": ..., "error": ...}. What ADO writes by
// itself ("edit") is none of the plug-in's texts. A text that the database refused as well, such as
// one without the table name that an ignored error left empty, is no news. A text that the parser
// refuses although SQL Server takes it stands in the file of exceptions, by its beginning and with
// the reason.

import { readFileSync, readdirSync, statSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

import { init, parse } from '@guanmingchiu/sqlparser-ts';

import { separateStatements } from './batch.mjs';

const usual = join(dirname(fileURLToPath(import.meta.url)), 'exceptions.json');

/** Blanks and line ends do not tell two texts apart. */
const flat = (text) => text.replace(/\s+/g, ' ').trim();

function readArguments(words) {
  const paths = [...words];
  const at = paths.indexOf('--exceptions');
  const exceptions = at < 0 ? usual : paths.splice(at, 2)[1];
  if (paths.length === 0 || !exceptions) {
    throw new Error('use: node check.mjs [--exceptions FILE] (LOG | FOLDER)...');
  }
  return { exceptions, paths };
}

function logsIn(path) {
  const found = statSync(path, { throwIfNoEntry: false });
  if (!found) throw new Error(`there is no ${path}`);
  if (!found.isDirectory()) return [path];
  return readdirSync(path)
    .filter((name) => name.endsWith('.jsonl'))
    .sort()
    .map((name) => join(path, name));
}

/** The distinct texts of the logs: where each stands first, and whether the database ever took it. */
function readTexts(logs) {
  const texts = new Map();
  for (const log of logs) {
    readFileSync(log, 'utf8').split('\n').forEach((line, index) => {
      if (line.trim() === '') return;
      const { text, edit, error } = JSON.parse(line);
      if (typeof text !== 'string') throw new Error(`${log}:${index + 1}: no statement text`);
      if (edit) return;
      if (!texts.has(text)) texts.set(text, { place: `${log}:${index + 1}`, taken: false });
      if (!error) texts.get(text).taken = true;
    });
  }
  return texts;
}

function readExceptions(path) {
  const exceptions = JSON.parse(readFileSync(path, 'utf8'));
  for (const { starts, reason } of exceptions) {
    if (!starts || !reason) throw new Error(`${path}: an exception wants "starts" and "reason"`);
  }
  return exceptions.map((exception) => ({ ...exception, uses: 0 }));
}

/** What the parser has against a text; nothing when it takes it. */
function objection(text) {
  try {
    const statements = parse(separateStatements(text), 'mssql');
    return statements.length > 0 ? undefined : 'no statement in it';
  } catch (error) {
    return error.message;
  }
}

async function main() {
  const { exceptions: exceptionsFile, paths } = readArguments(process.argv.slice(2));
  const logs = paths.flatMap(logsIn);
  const texts = readTexts(logs);
  if (texts.size === 0) throw new Error(`no statement texts in ${paths.join(', ')}`);
  const exceptions = readExceptions(exceptionsFile);

  await init();
  let excepted = 0;
  let refused = 0;
  let failures = 0;
  const complain = (message) => {
    failures += 1;
    console.error(message);
  };
  for (const [text, { place, taken }] of texts) {
    const reason = objection(text);
    if (reason === undefined) continue;
    if (!taken) {
      refused += 1;
      continue;
    }
    const exception = exceptions.find(({ starts }) => flat(text).startsWith(flat(starts)));
    if (exception) {
      exception.uses += 1;
      excepted += 1;
    } else {
      complain(`${place}: ${reason}\n    ${flat(text)}`);
    }
  }
  for (const { starts, uses } of exceptions) {
    if (uses === 0) complain(`${exceptionsFile}: nothing needs the exception "${starts}"`);
  }
  console.log(`grammar: ${texts.size} statement texts of ${logs.length} logs, ${excepted} excepted, ` +
              `${refused} refused by the database as well, ${failures} faults`);
  return failures === 0 ? 0 : 1;
}

main().then(
  (code) => { process.exitCode = code; },
  (error) => {
    console.error(`grammar: ${error.message}`);
    process.exitCode = 1;
  });
