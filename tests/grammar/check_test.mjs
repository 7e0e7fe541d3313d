import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';

const checker = join(dirname(fileURLToPath(import.meta.url)), 'check.mjs');
const folder = mkdtempSync(join(tmpdir(), 'grammar-'));
after(() => rmSync(folder, { recursive: true }));

/** Runs the check over a file with this content. */
function checkFile(name, content) {
  const file = join(folder, name);
  writeFileSync(file, content);
  const run = spawnSync(process.execPath, [checker, file], { encoding: 'utf8' });
  return { ok: run.status === 0, output: run.stdout + run.stderr };
}

/** Runs the check over one log with these lines and these exceptions. */
function check(lines, exceptions = []) {
  const log = join(folder, 'some.jsonl');
  const list = join(folder, 'exceptions.json');
  writeFileSync(log, lines.map((line) => JSON.stringify(line)).join('\n'));
  writeFileSync(list, JSON.stringify(exceptions));
  const run = spawnSync(process.execPath, [checker, '--exceptions', list, folder], { encoding: 'utf8' });
  return { ok: run.status === 0, output: run.stdout + run.stderr };
}

test('a sound statement passes', () => {
  assert.ok(check([{ text: 'SELECT A FROM B WITH (NOLOCK) WHERE C = 1' }]).ok);
});

for (const text of [
  'SELECT FROM B',
  'SELECT A FROM B WHERE',
  'UPDATE B SETT A = 1',
  'MERGE B USING C ON (B.A = C.A) WHEN MATCHED UPDATE SET A = 1;',
  'DELETE FROM B WHERE (A = 1',
  "SELECT A FROM B WHERE C = 'x",
  'DECLARE @a int SET @a = INSERT INTO B(A) VALUES (@a)',
  'IF NOT EXISTS (SELECT 1 FROM B) BEGIN INSERT INTO B(A) VALUES (1)',
]) {
  test(`a broken statement is found: ${text}`, () => {
    const { ok, output } = check([{ text: 'SELECT 1' }, { text }]);
    assert.ok(!ok);
    assert.match(output, /some\.jsonl:2: /);
  });
}

for (const text of [
  'declare @a int if not exists (select 1 from B) begin set @a = 1 insert into B(A) values (@a) end',
  'DECLARE @a int DECLARE @b int SET @a = 1 SET @b = 2 INSERT INTO B(A) SELECT @a WHERE @b = 2',
  'IF EXISTS (SELECT 1) BEGIN DROP TABLE B END ELSE IF 1 = 2 DROP TABLE C',
  "IF 1 = 1 BEGIN UPDATE B SET A = CASE WHEN C = ';' THEN 1 ELSE 2 END END EXEC P 1, 'x'",
]) {
  test(`a batch without separators is parted: ${text}`, () => {
    const { ok, output } = check([{ text }]);
    assert.ok(ok, output);
  });
}

test('an exception excuses what begins like it', () => {
  const exceptions = [{ starts: 'delete B', reason: 'FROM may be left out' }];
  const { ok, output } = check([{ text: ' delete\r\n B where A = 1' }], exceptions);
  assert.ok(ok, output);
});

test('an exception that nothing needs is a fault', () => {
  const exceptions = [{ starts: 'SELECT 1', reason: 'none' }];
  const { ok, output } = check([{ text: 'SELECT 1' }], exceptions);
  assert.ok(!ok);
  assert.match(output, /nothing needs the exception/);
});

test('what the database refused as well is no news, unless it took it once', () => {
  const broken = { text: 'SELECT * FROM ORDER BY A', error: 'near ORDER' };
  assert.ok(check([{ text: 'SELECT 1' }, broken]).ok);
  assert.ok(!check([broken, { ...broken, error: null }]).ok);
});

test('edits are not looked at, and without texts there is nothing to pass', () => {
  assert.ok(check([{ text: 'SELECT 1' }, { text: 'no statement', edit: true }]).ok);
  const { ok, output } = check([{ text: 'SELECT 1', edit: true }]);
  assert.ok(!ok);
  assert.match(output, /no statement texts/);
});

test('pinned texts are looked at one by one, conditions as parts of a statement', () => {
  const sound = '-- A\r\nSELECT 1\r\n\r\nGO\r\n\r\n-- B: x (condition)\r\n AND (C = 1) \r\nGO\r\n';
  const { ok, output } = checkFile('sound.sql', sound);
  assert.ok(ok, output);
  assert.match(output, /grammar: 2 statement texts of 1 files/);
  const broken = checkFile('broken.sql', sound.replace('C = 1', 'C = '));
  assert.ok(!broken.ok);
  assert.match(broken.output, /broken\.sql: B: x/);
});

test('a file of pinned texts that cannot be parted is refused', () => {
  for (const content of ['', 'SELECT 1\r\nGO\r\n', '-- A\r\nSELECT 1\r\nGO\r\n-- B\r\nSELECT 1']) {
    const { ok, output } = checkFile('some.sql', content);
    assert.ok(!ok);
    assert.match(output, /has no heading or no GO/);
  }
});
