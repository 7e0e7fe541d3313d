// Changes the plug-in's code in small ways, one at a time, and sees whether a test notices. A change that
// none notices, a survivor, shows code that is not tested, or that makes no difference.
//
//   tools/mutate [--count N] [--seed N] [--list]     N changes (20), drawn by the seed; or only their list
//   tools/mutate --only PATH:LINE [--only ...]       all changes of a line
//
// Every possible change is drawn with the same probability, so that the score holds for all of them. It works
// on a copy of the committed sources in build/mutants. Tests are built and run in groups, those that notice
// most first, and in the end everything that ./test runs natively; the first failure ends a change. The score
// goes into bench/README.md.

import { spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { parseArgs } from 'node:util';

const root = join(dirname(fileURLToPath(import.meta.url)), '..');
const copy = join(root, 'build/mutants/tree');
const build = join(root, 'build/mutants/build');
const folders = ['src/sql', 'src/forms', 'src/controls'];

/** Each finds a piece of code, and tells what stands in its place. Only the first group is replaced. */
const changes = [
  ['equality', / (==) /g, () => '!='],
  ['inequality', / (!=) /g, () => '=='],
  ['less', / (<) (?!<)/g, () => '<='],
  ['less or equal', / (<=) /g, () => '<'],
  ['greater', / (>) /g, () => '>='],
  ['greater or equal', / (>=) /g, () => '>'],
  ['and', / (&&) /g, () => '||'],
  ['or', / (\|\|) /g, () => '&&'],
  ['not', /[ (](!)[A-Za-z_(]/g, () => ''],
  ['truth', /\b(true|false)\b/g, (word) => (word === 'true' ? 'false' : 'true')],
  ['number', /[ ({](\d+)(?=[,;)} ])/g, (digits) => String(Number(digits) + 1)],
  ['plus', / (\+) (?=\d|[a-z]\w*\.size)/g, () => '-'],
  ['call', /^( {2,}[a-zA-Z_][\w.]*(?:->\w+)?\([^;{}]*\);)$/g, () => ';'],
];

const slowest = 300; // seconds; a change that lets a test run for ever is noticed, too

/** Groups of folders of tests by how much they notice for their time, with what is built for them. */
const groups = [
  { targets: ['workbench'], folders: ['scenarios'] },
  {
    targets: ['controls_tests', 'statement_tests', 'forms_tests', 'plugin_tests', 'discount_tests'],
    folders: ['controls', 'sql', 'plugin', 'discounts', 'forms'],
  },
  { targets: ['value_tests', 'kebu_walk'], folders: ['values', 'walk'] },
  { targets: ['kebu_fault_tests'], folders: ['faults'] },
  { targets: ['all'] }, // the other folders
];

/** The same numbers for the same seed. */
function randomFrom(seed) {
  let state = seed >>> 0;
  return () => {
    state = (state + 0x6d2b79f5) >>> 0;
    let mixed = Math.imul(state ^ (state >>> 15), state | 1);
    mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
    return ((mixed ^ (mixed >>> 14)) >>> 0) / 4294967296;
  };
}

const run = (command, args, options = {}) =>
  spawnSync(command, args, { encoding: 'utf8', maxBuffer: 1 << 28, ...options });

/** The tests of a folder. What they started ends with them when they take too long. */
const runTests = (folder) =>
  run('timeout', ['--kill-after=5', String(slowest), 'ctest', '--test-dir', join(build, 'tests', folder),
    '--stop-on-failure', '-j2']);
const timedOut = [124, 137]; // exit codes of timeout

function must(command, args, options) {
  const result = run(command, args, options);
  if (result.status !== 0) throw new Error(`${command} ${args.join(' ')}\n${result.stdout}${result.stderr}`);
  return result.stdout;
}

/** A line with texts and comments blanked out, so that only code is changed. */
const codeOf = (line) =>
  line
    .replace(/"(?:[^"\\]|\\.)*"/g, (text) => '"' + '_'.repeat(text.length - 2) + '"')
    .replace(/'(?:[^'\\]|\\.)'/g, (text) => "'" + '_'.repeat(text.length - 2) + "'")
    .replace(/\/\/.*$/, (text) => ' '.repeat(text.length));

/** All changes that can be made to a file. */
function mutantsOf(path, content) {
  const found = [];
  content.split('\n').forEach((line, index) => {
    // A width or height is looked at, not tested.
    if (/\.width|\.setSize|\.setLines/.test(line)) return;
    if (/^\s*(#|\/\/|template|static_assert|namespace|using|friend|case )/.test(line)) return;
    const code = codeOf(line);
    for (const [name, pattern, replacement] of changes) {
      for (const match of code.matchAll(pattern)) {
        const start = match.index + match[0].indexOf(match[1]);
        const before = line.slice(start, start + match[1].length);
        const after = line.slice(0, start) + replacement(before) + line.slice(start + before.length);
        found.push({ path, line: index + 1, name, before: line.trim(), after: after.trim(), text: after, index });
      }
    }
  });
  return found;
}

function sources() {
  const listed = must('git', ['-C', root, 'ls-files', ...folders]);
  return listed.split('\n').filter((path) => path.endsWith('.cpp'));
}

/** Writes only files that differ, so that the next run builds little; files that are gone are removed. */
function copySources() {
  mkdirSync(copy, { recursive: true });
  const env = { ...process.env, GIT_INDEX_FILE: join(root, 'build/mutants/index') };
  must('git', ['-C', root, '--work-tree', copy, 'read-tree', '--reset', '-u', 'HEAD'], { env });
}

const make = (targets) => run('cmake', ['--build', build, '--parallel', '2', '--target', ...targets]);

/** The folders of tests that no group names. */
function otherFolders() {
  const named = groups.flatMap((group) => group.folders ?? []);
  const hasTests = (name) => existsSync(join(build, 'tests', name, 'CTestTestfile.cmake'));
  return readdirSync(join(copy, 'tests')).filter((name) => hasTests(name) && !named.includes(name));
}

/** What notices the change: a test, the compiler, or nothing. */
function verdictOf() {
  for (const group of groups) {
    if (make(group.targets).status !== 0) return 'does not compile';
    for (const folder of group.folders ?? otherFolders()) {
      const result = runTests(folder);
      if (result.status === 0) continue;
      if (timedOut.includes(result.status)) return 'caught by the time it takes';
      const failed = /\d+ - (\S+) \(/.exec(result.stdout);
      return `caught by ${failed ? failed[1] : folder}`;
    }
  }
  return 'survived';
}

function number(option, text) {
  if (!/^\d+$/.test(text)) throw new Error(`${option} takes a number, not ${text}`);
  return Number(text);
}

const drawn = (mutants, random) =>
  mutants
    .map((mutant) => ({ mutant, key: random() }))
    .sort((a, b) => a.key - b.key)
    .map(({ mutant }) => mutant);

function chosen(mutants, lines) {
  return lines.flatMap((line) => {
    const found = mutants.filter((mutant) => `${mutant.path}:${mutant.line}` === line);
    if (found.length === 0) throw new Error(`nothing can be changed at ${line}`);
    return found;
  });
}

function main() {
  const { values } = parseArgs({
    options: {
      count: { type: 'string', default: '20' },
      seed: { type: 'string', default: '1' },
      list: { type: 'boolean', default: false },
      only: { type: 'string', multiple: true, default: [] },
    },
  });
  const all = sources().flatMap((path) => mutantsOf(path, must('git', ['-C', root, 'show', `HEAD:${path}`])));
  const queue = values.only.length > 0 ? chosen(all, values.only) : drawn(all, randomFrom(number('--seed', values.seed)));
  const wanted = values.only.length > 0 ? queue.length : number('--count', values.count);
  if (values.list) {
    for (const m of queue.slice(0, wanted)) console.log(`${m.path}:${m.line}: ${m.before}\n    ${m.after}`);
    console.log(`${all.length} changes are possible`);
    return;
  }
  copySources();
  must('cmake', ['-S', copy, '-B', build, '-G', 'Ninja', '-DCMAKE_BUILD_TYPE=Debug', '-DCMAKE_CXX_FLAGS_DEBUG=-O0',
    '-DKEBU_BENCH=OFF']);
  for (const group of groups) {
    const made = make(group.targets);
    if (made.status !== 0) throw new Error(`the unchanged sources cannot be built:\n${made.stdout.slice(-2000)}`);
  }
  const unchanged = verdictOf();
  if (unchanged !== 'survived') throw new Error(`the unchanged sources are ${unchanged}`);
  let caught = 0;
  const survivors = [];
  while (caught + survivors.length < wanted && queue.length > 0) {
    const mutant = queue.shift();
    const file = join(copy, mutant.path);
    const content = readFileSync(file, 'utf8');
    const lines = content.split('\n');
    lines[mutant.index] = mutant.text;
    writeFileSync(file, lines.join('\n'));
    const began = Date.now();
    let verdict;
    try {
      verdict = verdictOf();
    } finally {
      writeFileSync(file, content);
    }
    const seconds = Math.round((Date.now() - began) / 1000);
    console.log(`${verdict} (${seconds} s): ${mutant.path}:${mutant.line}: ${mutant.name}`);
    console.log(`    ${mutant.before}\n    ${mutant.after}`);
    if (verdict === 'does not compile') continue;
    if (verdict === 'survived') survivors.push(mutant);
    else caught += 1;
  }
  console.log(`${caught} of ${caught + survivors.length} caught`);
  for (const mutant of survivors) console.log(`survived: ${mutant.path}:${mutant.line}: ${mutant.before} -> ${mutant.after}`);
}

main();
