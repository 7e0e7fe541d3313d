// Changes the plug-in's code in small ways, one at a time, and sees whether a test notices. A change that
// none notices, a survivor, shows code that is not tested, or that makes no difference.
//
//   tools/mutate [--count N] [--seed N] [--list]     N changes (20), drawn by the seed; or only their list
//
// It works on a copy of the committed sources in build/mutants. Tests are built and run in groups, those that
// notice most first; the first failure ends a change. The score goes into bench/README.md.

import { spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
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

/** Groups of tests by how much they notice for their time: what is built, and what is run. */
const ctest = (names) => ['ctest', '--test-dir', build, '--stop-on-failure', '-j2', '-R', names];
const programs = (names) => names.map((name) => [join(build, 'tests', name), '--gtest_brief', '--gtest_fail_fast']);
const groups = [
  { targets: ['workbench'], run: [ctest('^scenario\\.')] },
  {
    targets: ['controls_tests', 'statement_tests', 'forms_tests', 'plugin_tests', 'discount_tests'],
    run: programs(['controls/controls_tests', 'sql/statement_tests', 'forms/forms_tests', 'plugin/plugin_tests',
      'discounts/discount_tests']),
  },
  { targets: ['value_tests', 'kebu_walk'], run: [...programs(['values/value_tests']), ctest('^walk$')] },
  { targets: ['kebu_fault_tests'], run: programs(['faults/kebu_fault_tests']) },
];
const slowest = 300_000; // milliseconds; a change that lets a test run for ever is noticed, too

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

function run(command, args, options = {}) {
  return spawnSync(command, args, { encoding: 'utf8', maxBuffer: 1 << 28, timeout: slowest, ...options });
}

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

function copySources() {
  mkdirSync(copy, { recursive: true });
  // Only files that differ are written, so that the next run builds little.
  const commit = must('git', ['-C', root, 'rev-parse', 'HEAD']).trim();
  for (const path of must('git', ['-C', root, 'ls-files']).split('\n').filter(Boolean)) {
    const blob = spawnSync('git', ['-C', root, 'show', `${commit}:${path}`], { maxBuffer: 1 << 28 });
    if (blob.status !== 0) continue;
    const target = join(copy, path);
    if (existsSync(target) && readFileSync(target).equals(blob.stdout)) continue;
    mkdirSync(dirname(target), { recursive: true });
    const mode = path.startsWith('tools/') || !path.includes('.') ? 0o755 : 0o644;
    writeFileSync(target, blob.stdout, { mode });
  }
}

const make = (targets) => run('cmake', ['--build', build, '--parallel', '2', '--target', ...targets]);

/** What notices the change: a test, the compiler, or nothing. */
function verdictOf() {
  for (const group of groups) {
    if (make(group.targets).status !== 0) return 'does not compile';
    for (const [command, ...args] of group.run) {
      const result = run(command, args, { cwd: build });
      if (result.error?.code === 'ETIMEDOUT') return 'time-out';
      if (result.status === 0) continue;
      const failed = /\[  FAILED  \] (\S+)|\d+ - (\S+) \(/.exec(result.stdout);
      return `caught by ${failed ? failed[1] ?? failed[2] : command.split('/').pop()}`;
    }
  }
  return 'survived';
}

function main() {
  const { values } = parseArgs({
    options: {
      count: { type: 'string', default: '20' },
      seed: { type: 'string', default: '1' },
      list: { type: 'boolean', default: false },
    },
  });
  const random = randomFrom(Number(values.seed));
  const all = sources().flatMap((path) => mutantsOf(path, must('git', ['-C', root, 'show', `HEAD:${path}`])));
  const drawn = all.map((mutant) => ({ mutant, key: random() })).sort((a, b) => a.key - b.key);
  const queue = drawn.map(({ mutant }) => mutant);
  const wanted = Number(values.count);
  if (values.list) {
    for (const m of queue.slice(0, wanted)) console.log(`${m.path}:${m.line}: ${m.before}\n    ${m.after}`);
    console.log(`${all.length} changes are possible`);
    return;
  }
  copySources();
  must('cmake', ['-S', copy, '-B', build, '-G', 'Ninja', '-DCMAKE_BUILD_TYPE=Debug', '-DCMAKE_CXX_FLAGS_DEBUG=-O0']);
  for (const group of groups) {
    const made = run('cmake', ['--build', build, '--parallel', '2', '--target', ...group.targets], { timeout: 0 });
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
  console.log(`${caught} of ${caught + survivors.length} caught, seed ${values.seed}`);
  for (const mutant of survivors) console.log(`survived: ${mutant.path}:${mutant.line}: ${mutant.before} -> ${mutant.after}`);
}

main();
