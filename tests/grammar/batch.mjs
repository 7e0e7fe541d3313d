// SQL Server needs no separators between the statements of a batch, the parser does. A separator is
// put where a word can only begin a statement. It is never taken away from a text that has none to
// give: a batch that this cannot part is refused by the parser, not passed over.

const token = /--[^\n]*|\/\*[\s\S]*?\*\/|'(?:[^']|'')*'|\[[^\]]*\]|@?[\p{L}_#@$][\p{L}\p{N}_#@$]*|\s+|./guy;

/** The tokens of a text with their places, without blanks and comments. */
function tokensOf(text) {
  return [...text.matchAll(token)]
    .filter(([word]) => !/^(\s|--|\/\*)/.test(word))
    .map((match) => ({ word: match[0].toLowerCase(), at: match.index }));
}

/** Whether the token begins a statement wherever it stands outside of parentheses and CASE. */
function beginsStatement({ word }, next) {
  if (word === 'declare' || word === 'set') return next.startsWith('@');
  if (word === 'insert') return next === 'into';  // and not the branch of a MERGE
  return word === 'if' || word === 'merge' || word === 'exec' || word === 'drop';
}

/** The text with separators between those statements that have none. */
export function separateStatements(text) {
  const tokens = tokensOf(text);
  const places = [];
  let parentheses = 0;
  let cases = 0;
  let wantsBody = false;  // after IF: what comes next belongs to it
  tokens.forEach((current, index) => {
    const { word, at } = current;
    const previous = tokens[index - 1]?.word ?? ';';
    const next = tokens[index + 1]?.word ?? '';
    if (word === '(') parentheses += 1;
    if (word === ')') parentheses -= 1;
    if (parentheses > 0) return;
    if (word === 'case') cases += 1;
    else if (word === 'end' && cases > 0) cases -= 1;
    else if (word === 'begin' || word === ';') wantsBody = false;
    else if (word === 'end' && previous !== ';') places.push(at);
    else if (beginsStatement(current, next)) {
      const first = [';', 'begin', 'else'].includes(previous);
      if (!first && !wantsBody) places.push(at);
      wantsBody = word === 'if';
    }
  });
  let parted = '';
  let from = 0;
  for (const place of places) {
    parted += `${text.slice(from, place)};`;
    from = place;
  }
  return parted + text.slice(from);
}
