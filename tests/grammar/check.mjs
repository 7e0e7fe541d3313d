// Puts statement texts through a T-SQL parser that nobody here wrote.
//
//   node check.mjs [--exceptions FILE] (FILE | FOLDER)...
//
// A file *.jsonl is a log of the workbench, one JSON object a line: {"text": ..., "edit": ...,
// "error": ...}. What ADO writes by itself ("edit") is none of the plug-in's texts. A text that the
// database refused as well, such as one without the table name that an ignored error left empty, is
// passed over. A file *.sql holds pinned texts, each between a comment line with its name and a line
// "GO". A text that the parser refuses although SQL Server takes it stands in the file of exceptions,
// by its beginning and with the reason.

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
    throw new Error('use: node check.mjs [--exceptions FILE] (FILE | FOLDER)...');
  }
  return { exceptions, paths };
}

function filesIn(path) {
  const found = statSync(path, { throwIfNoEntry: false });
  if (!found) throw new Error(`there is no ${path}`);
  if (!found.isDirectory()) return [path];
  return readdirSync(path)
    .filter((name) => name.endsWith('.jsonl') || name.endsWith('.sql'))
    .sort()
    .map((name) => join(path, name));
}

/** The texts of a log that the plug-in made. */
function textsOfLog(log) {
  return readFileSync(log, 'utf8').split('\n').flatMap((line, index) => {
    if (line.trim() === '') return [];
    const place = `${log}:${index + 1}`;
    const { text, edit, error } = JSON.parse(line);
    if (typeof text !== 'string') throw new Error(`${place}: no statement text`);
    return edit ? [] : [{ text, place, taken: !error }];
  });
}

/** A text that is part of a WHERE clause, in a statement. */
const asStatement = (condition) =>
  `SELECT 1 FROM T WHERE 1 = 1${/^\s*and\b/i.test(condition) ? '' : ' AND '}${condition}`;

/** The pinned texts of a file. */
function pinnedTexts(file) {
  const content = readFileSync(file, 'utf8');
  const texts = [];
  const pinned = /-- ([^\r]*)\r\n([\s\S]*?)\r\nGO\r\n(?:\r\n)?/gy;
  for (let match; (match = pinned.exec(content)) !== null;) {
    const [whole, name, text] = match;
    texts.push({
      text: name.endsWith(' (condition)') ? asStatement(text) : text,
      place: `${file}: ${name}`,
      taken: true,
    });
    if (match.index + whole.length === content.length) return texts;
  }
  throw new Error(`${file}: text ${texts.length + 1} has no heading or no GO`);
}

/** The distinct texts: where each stands first, and whether the database ever took it. */
function readTexts(files) {
  const texts = new Map();
  for (const file of files) {
    for (const { text, place, taken } of file.endsWith('.sql') ? pinnedTexts(file) : textsOfLog(file)) {
      if (!texts.has(text)) texts.set(text, { place, taken: false });
      if (taken) texts.get(text).taken = true;
    }
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
  const files = paths.flatMap(filesIn);
  const texts = readTexts(files);
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
  console.log(`grammar: ${texts.size} statement texts of ${files.length} files, ${excepted} excepted, ` +
              `${refused} refused by the database as well, ${failures} faults`);
  return failures === 0 ? 0 : 1;
}

main().then(
  (code) => { process.exitCode = code; },
  (error) => {
    console.error(`grammar: ${error.message}`);
    process.exitCode = 1;
  });
