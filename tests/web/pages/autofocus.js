// The element is defined once its page has been drawn; with ?busy a person is at a box by then.
addEventListener('load', () =>
  requestAnimationFrame(() =>
    setTimeout(() => {
      if (location.search === '?busy') document.getElementById('busy').focus();
      import('/package/zolt20-map-control.js');
    }),
  ),
);
