// Where there is no page, such as on a server, the package can be imported, and does nothing.
import * as zolt20 from 'zolt20-map-control';

console.log(Object.keys(zolt20).sort().join());
