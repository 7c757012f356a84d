'use strict';
// Plays the puzzle of this page.  State is by cell: a letter (or several),
// and marks: pencil, wrong (checked), shown (revealed).
(() => {
  const $ = (id) => document.getElementById(id);
  const puzzle = JSON.parse($('puzzle').textContent);
  const {width, height, kinds, numbers, entries} = puzzle;
  const count = width * height;
  const cells = [];  // elements, by cell
  const isWhite = (i) => kinds[i] === '.';
  const key = `crossword:${hash($('puzzle').textContent)}`;
  const answers = uncover(puzzle.key);
  const throughCell = [new Map(), new Map()];  // cell -> entry: across, down
  entries.forEach((entry, e) => {
    for (const cell of entry.cells)
      throughCell[entry.down ? 1 : 0].set(cell, e);
  });

  const fresh = () => ({
    letters: Array.from({length: count}, (_, i) => puzzle.given[i] || ''),
    marks: Array(count).fill(''),
    seconds: 0,
    done: false,
  });
  let state = load();
  let cursor = Math.max(0, kinds.indexOf('.'));
  let down = !throughCell[0].has(cursor) && throughCell[1].has(cursor);
  let pencil = false;
  let paused = false;

  // A hash of the puzzle, so that each keeps its own progress.
  function hash(text) {
    let h = 0xcbf29ce484222325n;
    for (const byte of new TextEncoder().encode(text))
      h = BigInt.asUintN(64, (h ^ BigInt(byte)) * 0x100000001b3n);
    return h.toString(36);
  }

  // The answers are covered so that nobody reads them by accident.
  function uncover(text) {
    const bytes = Uint8Array.from(atob(text), (c) => c.charCodeAt(0));
    const plain = bytes.map((b, i) => b ^ ((i * 73 + 41) & 255));
    return new TextDecoder().decode(plain).split('\n');
  }

  function load() {
    try {
      const kept = JSON.parse(localStorage.getItem(key));
      const whole = kept && [kept.letters, kept.marks].every(
          (list) => Array.isArray(list) && list.length === count &&
              list.every((text) => typeof text === 'string'));
      if (whole && Number.isFinite(kept.seconds)) return kept;
    } catch { /* kept by somebody else, or storage is off */ }
    return fresh();
  }
  function save() {
    try {
      localStorage.setItem(key, JSON.stringify(state));
    } catch { /* the browser keeps nothing */ }
  }

  const say = (text) => { $('news').textContent = text; };
  const entryAt = (cell, isDown) => {
    const e = throughCell[isDown ? 1 : 0].get(cell);
    return e === undefined ? null : entries[e];
  };
  const current = () => entryAt(cursor, down);
  const name = (entry) =>
      `${entry.number} ${entry.down ? 'down' : 'across'}`;
  const hasAnswers = answers.some((answer) => answer);

  // Building

  function make(tag, className, text) {
    const element = document.createElement(tag);
    if (className) element.className = className;
    if (text !== undefined) element.textContent = text;
    return element;
  }

  function buildCell(i) {
    const kind = {'.': 'white', '#': 'block', '_': 'void'}[kinds[i]];
    const cell = make('div', `cell ${kind}`);
    cell.setAttribute('role', 'gridcell');
    if (puzzle.barRight.includes(i)) cell.classList.add('bar-right');
    if (puzzle.barBelow.includes(i)) cell.classList.add('bar-below');
    if (puzzle.circled.includes(i)) cell.classList.add('circled');
    if (puzzle.given[i]) cell.classList.add('given');
    if (puzzle.shades[i]) {
      cell.classList.add('shaded');
      cell.style.setProperty('--shade', puzzle.shades[i]);
    }
    if (!isWhite(i)) {
      cell.setAttribute('aria-label', kind === 'block' ? 'block' : 'no cell');
      return cell;
    }
    if (numbers[i]) cell.append(make('i', '', numbers[i]));
    cell.append(make('b'));
    cell.addEventListener('click', () => click(i));
    return cell;
  }

  function build() {
    for (const id of ['title', 'author', 'copyright', 'notes']) {
      $(id).textContent = puzzle[id];
      $(id).hidden = !puzzle[id];
    }
    $('grid').style.setProperty('--width', width);
    $('grid').style.gridTemplateColumns = `repeat(${width}, 1fr)`;
    for (let r = 0; r < height; ++r) {
      const row = make('div');
      row.setAttribute('role', 'row');
      for (let c = 0; c < width; ++c) {
        cells.push(buildCell(r * width + c));
        row.append(cells.at(-1));
      }
      $('grid').append(row);
    }
    for (const isDown of [false, true]) buildList(isDown);
    buildKeys();
  }

  function buildList(isDown) {
    const section = make('section');
    section.append(make('h2', '', isDown ? 'Down' : 'Across'));
    const list = make('ol');
    for (const entry of entries) {
      if (entry.down !== isDown) continue;
      const item = make('li');
      entry.button = make('button');
      entry.button.type = 'button';
      entry.button.append(make('span', '', entry.number),
                          make('span', '', entry.clue || '—'));
      entry.button.addEventListener('click', () => {
        goTo(entry.cells.find((i) => !state.letters[i]) ?? entry.cells[0],
             isDown);
        cells[cursor].focus();
      });
      item.append(entry.button);
      list.append(item);
    }
    section.append(list);
    $('lists').append(section);
  }

  // Letters to touch, where there is no keyboard.
  function buildKeys() {
    if (!matchMedia('(pointer: coarse)').matches) return;
    $('keys').hidden = false;
    for (const letter of [...'QWERTYUIOPASDFGHJKL⌫ZXCVBNM⟳◀▶']) {
      const button = make('button', '', letter);
      button.type = 'button';
      const act = {
        '⌫': ['Delete', back], '⟳': ['Other direction', turn],
        '◀': ['Previous clue', () => nextEntry(-1)],
        '▶': ['Next clue', () => nextEntry(1)],
      }[letter];
      if (act) button.setAttribute('aria-label', act[0]);
      button.addEventListener('click', act ? act[1] : () => type(letter));
      $('keys').append(button);
    }
  }

  // Showing

  function labelOf(i) {
    const parts = [`row ${Math.floor(i / width) + 1}`,
                   `column ${i % width + 1}`];
    for (const isDown of [false, true]) {
      const entry = entryAt(i, isDown);
      if (!entry) continue;
      parts.push(`${name(entry)} letter ${entry.cells.indexOf(i) + 1} of ` +
                 `${entry.cells.length}`);
    }
    parts.push(state.letters[i] || 'empty');
    if (puzzle.circled.includes(i)) parts.push('circled');
    parts.push({w: 'wrong', s: 'revealed', p: 'in pencil'}[state.marks[i]]);
    return parts.filter(Boolean).join(', ');
  }

  function showCell(i) {
    const cell = cells[i], letters = state.letters[i], mark = state.marks[i];
    cell.querySelector('b').textContent = letters;
    const inWord = current()?.cells.includes(i);
    for (const [className, on] of [
      ['long', [...letters].length > 1], ['pencil', mark === 'p'],
      ['wrong', mark === 'w'], ['shown', mark === 's'], ['word', inWord],
      ['cursor', i === cursor]])
      cell.classList.toggle(className, Boolean(on));
    cell.tabIndex = i === cursor ? 0 : -1;
    cell.setAttribute('aria-label', labelOf(i));
    cell.setAttribute('aria-selected', String(i === cursor));
  }

  function show() {
    for (let i = 0; i < count; ++i)
      if (isWhite(i)) showCell(i);
    const entry = current();
    $('clue').textContent =
        entry ? `${entry.number}${entry.down ? 'D' : 'A'}  ${entry.clue}` : '';
    for (const e of entries) {
      e.button.setAttribute('aria-current', String(e === entry));
      e.button.classList.toggle('done',
                                e.cells.every((i) => state.letters[i]));
    }
    entry?.button.scrollIntoView?.({block: 'nearest'});
    showTime();
  }

  function showTime() {
    const two = (n) => String(n).padStart(2, '0');
    const s = Math.floor(state.seconds);
    $('time').textContent = s < 3600
        ? `${Math.floor(s / 60)}:${two(s % 60)}`
        : `${Math.floor(s / 3600)}:${two(Math.floor(s / 60) % 60)}:` +
            two(s % 60);
  }

  // Moving

  function goTo(cell, isDown = down) {
    if (paused || !isWhite(cell)) return;
    const before = current();
    cursor = cell;
    down = entryAt(cell, isDown) || !entryAt(cell, !isDown) ? isDown : !isDown;
    show();
    const entry = current();
    if (entry && entry !== before)
      say(`${name(entry)}: ${entry.clue || 'no clue'}`);
  }
  function click(i) {
    if (i === cursor) turn();
    else goTo(i);
    cells[cursor].focus({preventScroll: true});
  }
  function turn() {
    if (entryAt(cursor, !down)) goTo(cursor, !down);
  }
  function step(dx, dy) {
    if (Boolean(dy) !== down && entryAt(cursor, !down)) return turn();
    let r = Math.floor(cursor / width), c = cursor % width;
    for (;;) {
      r += dy;
      c += dx;
      if (r < 0 || c < 0 || r >= height || c >= width) return;
      if (isWhite(r * width + c)) return goTo(r * width + c);
    }
  }
  function along(by) {
    const entry = current();
    const next = entry?.cells[entry.cells.indexOf(cursor) + by];
    if (next !== undefined) goTo(next);
    return next !== undefined;
  }
  function nextEntry(by) {
    const e = entries.indexOf(current());
    const entry = entries[(e + by + entries.length) % entries.length];
    if (entry)
      goTo(entry.cells.find((i) => !state.letters[i]) ?? entry.cells[0],
           entry.down);
  }

  // Writing

  function put(i, letters, mark) {
    if (paused || puzzle.given[i] || state.marks[i] === 's') return;
    state.letters[i] = letters;
    state.marks[i] = letters ? mark : '';
  }
  function type(letters) {
    put(cursor, letters.toUpperCase(), pencil ? 'p' : '');
    if (!along(1)) show();
    finish();
  }
  function back() {
    if (!state.letters[cursor]) along(-1);
    put(cursor, '', '');
    finish();
  }
  function finish() {
    save();
    show();
    const full = kinds.split('').every(
        (kind, i) => kind !== '.' || state.letters[i]);
    if (!full || state.done || !hasAnswers) return;
    if (wrongCells(whiteCells()).length) {
      say('The grid is full, but not all of it is right.');
      return;
    }
    state.done = true;
    save();
    say(`Solved in ${$('time').textContent}.`);
  }
  function askLetters() {
    $('answer').value = state.letters[cursor];
    $('ask').returnValue = '';
    $('ask').showModal();
    $('answer').select();
  }

  // Checking

  const whiteCells = () => [...kinds].flatMap((k, i) => k === '.' ? [i] : []);
  // The first letter is enough for a cell of several.
  const isRight = (i) => !answers[i] ||
      state.letters[i] === answers[i] || state.letters[i] === answers[i][0];
  const wrongCells = (list) =>
      list.filter((i) => state.letters[i] && !isRight(i));
  function cellsOf(what) {
    if (what === 'grid') return whiteCells();
    return what === 'word' ? current()?.cells ?? [cursor] : [cursor];
  }
  function check(what) {
    const wrong = wrongCells(cellsOf(what));
    for (const i of wrong) if (state.marks[i] !== 's') state.marks[i] = 'w';
    say(wrong.length ? `${wrong.length} wrong` : 'Nothing wrong');
  }
  function reveal(what) {
    for (const i of cellsOf(what)) {
      if (puzzle.given[i] || !answers[i]) continue;
      const was = state.letters[i];
      state.letters[i] = answers[i];
      if (was !== answers[i]) state.marks[i] = 's';
    }
    say(`Revealed the ${what}`);
  }
  function help(what, how) {
    if (paused) return;
    if (!hasAnswers) return say('This puzzle comes without answers.');
    (how === 'check' ? check : reveal)(what);
    finish();
  }

  // Listening

  const keys = {
    ArrowLeft: () => step(-1, 0), ArrowRight: () => step(1, 0),
    ArrowUp: () => step(0, -1), ArrowDown: () => step(0, 1),
    ' ': turn, Backspace: back, Insert: askLetters,
    Delete: () => { put(cursor, '', ''); finish(); },
    Enter: () => nextEntry(1),
    Home: () => goTo(current()?.cells[0] ?? cursor),
    End: () => goTo(current()?.cells.at(-1) ?? cursor),
  };
  function onKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const letter = [...event.key].length === 1 &&
        /[\p{L}\p{N}]/u.test(event.key);
    if (!letter && !keys[event.key]) return;
    event.preventDefault();
    if (letter) type(event.key);
    else keys[event.key]();
    cells[cursor].focus({preventScroll: true});
  }
  function listen() {
    $('grid').addEventListener('keydown', onKey);
    $('pencil').addEventListener('click', () => {
      pencil = !pencil;
      $('pencil').setAttribute('aria-pressed', String(pencil));
    });
    $('rebus').addEventListener('click', askLetters);
    $('ask').addEventListener('close', () => {
      if ($('ask').returnValue === 'ok') type($('answer').value.trim());
      cells[cursor].focus();
    });
    $('pause').addEventListener('click', () => {
      paused = !paused;
      document.body.classList.toggle('paused', paused);
      $('paused').hidden = !paused;
      $('pause').setAttribute('aria-pressed', String(paused));
      $('pause').textContent = paused ? 'Resume' : 'Pause';
    });
    $('clear').addEventListener('click', () => {
      if (!confirm('Take all your letters out?')) return;
      state = fresh();
      finish();
    });
    $('print').addEventListener('click', () => print());
    for (const button of document.querySelectorAll('[data-do]')) {
      button.addEventListener('click', () => {
        help(button.dataset.what, button.dataset.do);
        button.closest('details').open = false;
        cells[cursor].focus();
      });
    }
    setInterval(() => {
      if (paused || state.done || document.hidden) return;
      state.seconds += 1;
      showTime();
      if (state.seconds % 10 === 0) save();
    }, 1000);
    addEventListener('pagehide', save);
  }

  build();
  listen();
  show();
})();
