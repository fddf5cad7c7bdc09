// Wrong uses of the element: the compiler refuses the line behind each remark.
export const wrong = [
  // Refused: a page is a number.
  <zolt20-map-control key="page" prpTab="one" />,
  // Refused: there is no such attribute.
  <zolt20-map-control key="name" tabels="CUSTOMER2" />,
  // Refused: its event tells of no key.
  <zolt20-map-control key="event" oneventDone={(event: KeyboardEvent) => event.key} />,
];
