// The same for a script that takes its packages by require().
const zolt20 = require('zolt20-map-control');

console.log(Object.keys(zolt20).sort().join());
