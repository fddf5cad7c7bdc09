// Modal dialogs, made of the templates of the page.

let dialogs = 0;

// Says by what its heading and its text are read out.
function nameParts(dialog) {
  const number = ++dialogs;
  for (const [attribute, part] of [
    ['aria-labelledby', 'h2'],
    ['aria-describedby', '.text'],
  ]) {
    const element = dialog.querySelector(part);
    if (element === null) continue;
    element.id = `dialog${number}-${attribute}`;
    dialog.setAttribute(attribute, element.id);
  }
}

/// Shows a dialog until it has an answer, and gives that. `fill` gets the dialog and what ends it
/// with an answer, and gives what happens when the person turns away from it.
export function show(template, title, fill) {
  const dialog = document.importNode(
    document.getElementById(template).content.firstElementChild,
    true,
  );
  dialog.querySelector('h2').textContent = title;
  nameParts(dialog);
  return new Promise((resolve) => {
    const end = (answer) => {
      resolve(answer);
      dialog.close();
      dialog.remove();
    };
    const leave = fill(dialog, end) ?? (() => end());
    dialog.querySelector('.leave')?.addEventListener('click', leave);
    // A browser closes a dialog at the second Escape in a row whatever becomes of its event
    // "cancel", so the key is taken.
    dialog.addEventListener('keydown', (event) => {
      const isOwn =
        event.composedPath().find((node) => node instanceof HTMLDialogElement) === dialog;
      if (event.key !== 'Escape' || event.isComposing || event.defaultPrevented || !isOwn) return;
      event.preventDefault();
      leave();
    });
    dialog.addEventListener('cancel', (event) => {
      if (event.target !== dialog) return;
      event.preventDefault();
      leave();
    });
    dialog.addEventListener('close', () => end());
    document.body.append(dialog);
    dialog.showModal();
    dialog.dispatchEvent(new Event('shown'));
  });
}

/// Asks with a button for each answer, the last of which is the one that Escape gives too. Gives
/// the text of the button.
export function ask(title, text, ...answers) {
  return show('message', title, (dialog, end) => {
    dialog.querySelector('.text').textContent = text;
    dialog.querySelector('.buttons').append(
      ...answers.map((answer) => {
        const button = document.createElement('button');
        button.type = 'button';
        button.textContent = answer;
        button.autofocus = answer === answers.at(-1);
        button.classList.toggle('strong', button.autofocus);
        button.addEventListener('click', () => end(answer));
        return button;
      }),
    );
    return () => end(answers.at(-1));
  });
}

/// Tells what failed in a control.
export const tellFailure = (error) =>
  ask('Error', `${error.kind} (${error.number}): ${error.message}`, 'OK');
