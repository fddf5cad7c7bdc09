export default {optimizeDeps: {exclude: ['zolt20-map-control']}};
